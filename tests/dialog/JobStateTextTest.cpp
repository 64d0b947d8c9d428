#include <gtest/gtest.h>

#include "dialog/JobStateText.h"

namespace cardpanels::dialog {
namespace {

TEST(JobStateText, APrintedJobHasNothingToTell) {
  EXPECT_EQ(lossLine({IPP_JSTATE_COMPLETED, {"job-completed-successfully"}, "Rendering completed"}),
            "");
}

TEST(JobStateText, TellsHowAJobEndedAndWhy) {
  EXPECT_EQ(lossLine({IPP_JSTATE_CANCELED, {"job-canceled-by-user"}}), "Job cancelled · By a user");
  EXPECT_EQ(lossLine({IPP_JSTATE_CANCELED, {"processing-to-stop-point"}}), "Job cancelled");
  EXPECT_EQ(
      lossLine(
          {IPP_JSTATE_ABORTED, {"aborted-by-system", "com.example.ribbon-torn"}, "Filter failed"}),
      "Job aborted · Given up by the print server · Ribbon torn · Filter failed");
}

TEST(JobStateText, TellsHowFarAJobIs) {
  EXPECT_EQ(jobLine({IPP_JSTATE_PENDING, {"printer-stopped"}}), "Waiting · Printer stopped");
  EXPECT_EQ(jobLine({IPP_JSTATE_PROCESSING, {"job-printing"}, "Page 1"}), "Printing · Page 1");
  EXPECT_EQ(jobLine({IPP_JSTATE_HELD, {"job-hold-until-specified"}}),
            "Held · Job hold until specified");
  EXPECT_EQ(jobLine({IPP_JSTATE_COMPLETED, {"job-completed-successfully"}, "Rendering completed"}),
            "Printed");
  EXPECT_EQ(jobLine({IPP_JSTATE_CANCELED}), "Job cancelled");
}

}  // namespace
}  // namespace cardpanels::dialog
