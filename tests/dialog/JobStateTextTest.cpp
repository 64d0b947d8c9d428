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

}  // namespace
}  // namespace cardpanels::dialog
