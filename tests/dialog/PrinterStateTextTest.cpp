#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "tests/host/TestJob.h"

namespace cardpanels::dialog {
namespace {

std::string lineOf(const host::PrinterState& state, ppd_file_t* ppd = nullptr) {
  return stateLine({state}, ppd);
}

std::string lineOfReasons(const std::vector<std::string>& reasons, ppd_file_t* ppd = nullptr) {
  return lineOf({.reasons = reasons}, ppd);
}

TEST(PrinterStateText, IsEmptyWhenThereIsNothingToKnow) {
  EXPECT_EQ(lineOf({}), "");
  EXPECT_EQ(lineOf({.message = "Rendering completed"}), "");
  EXPECT_EQ(lineOfReasons({"cups-waiting-for-job-completed"}), "");
}

TEST(PrinterStateText, TellsThatThePrinterIsStoppedAndWhy) {
  EXPECT_EQ(lineOf({.isStopped = true}), "Printer stopped");
  EXPECT_EQ(lineOf({.isStopped = true, .reasons = {"paused"}, .message = "Paused"}),
            "Printer stopped");
  EXPECT_EQ(lineOf({.isStopped = true, .message = "Rejecting Jobs"}), "Printer stopped");
  EXPECT_EQ(lineOf({.isStopped = true, .reasons = {"paused"}, .message = "Being cleaned"}),
            "Printer stopped: Being cleaned");
}

TEST(PrinterStateText, TellsThatThePrinterTakesNoJobs) {
  EXPECT_EQ(lineOf({.isAccepting = false}), "Printer takes no jobs");
  EXPECT_EQ(lineOf({.isStopped = true, .isAccepting = false, .reasons = {"door-open"}}),
            "Printer stopped · Printer takes no jobs · Door open");
}

TEST(PrinterStateText, TellsReasonsInTheWordsOfCards) {
  EXPECT_EQ(lineOfReasons({"marker-supply-empty-error"}), "Ribbon empty");
  EXPECT_EQ(lineOfReasons({"door-open"}), "Door open");
  EXPECT_EQ(lineOfReasons({"media-empty-report"}), "No cards");
  EXPECT_EQ(lineOfReasons({"media-jam-error"}), "Card jam");
  EXPECT_EQ(lineOfReasons({"marker-supply-low-warning"}), "Ribbon low");
  EXPECT_EQ(lineOfReasons({"offline-report"}), "Printer offline");
}

TEST(PrinterStateText, TellsEachOnceAndWhatIsWorstFirst) {
  EXPECT_EQ(lineOfReasons({"connecting-to-device-report", "marker-supply-low-warning",
                           "cover-open-error", "door-open-warning", "media-empty"}),
            "Door open · No cards · Ribbon low · Connecting to the printer");
}

TEST(PrinterStateText, TellsUnknownReasonsByTheirOwnWords) {
  EXPECT_EQ(lineOfReasons({"fuser-over-temp-error"}), "Fuser over temp");
  EXPECT_EQ(lineOfReasons({"com.example.lid-ajar-warning"}), "Lid ajar");
  EXPECT_EQ(lineOfReasons({"marker\nsupply"}), "Marker\\nsupply");
  EXPECT_EQ(lineOfReasons({"-error", ""}), "");
}

TEST(PrinterStateText, ThePPDsWordsWin) {
  const host::PPDFile ppd =
      host::opened(test::testPPD({test::laminateOption()},
                                 "*cupsIPPReason media-empty/Hopper 1 is empty: \"\"\n"
                                 "*cupsIPPReason com.example.lid-ajar-error/Lid not shut: \"\"\n"));
  EXPECT_EQ(
      lineOfReasons({"media-empty-error", "com.example.lid-ajar-error", "media-jam"}, ppd.get()),
      "Hopper 1 is empty · Lid not shut · Card jam");
}

TEST(PrinterStateText, TellsWhyNothingIsKnown) {
  EXPECT_EQ(stateLine({{.isStopped = true}, "The print server cannot be asked."}, nullptr),
            "The print server cannot be asked.");
}

}  // namespace
}  // namespace cardpanels::dialog
