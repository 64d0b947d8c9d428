#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialog/PrinterList.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;

const std::vector<host::ListedQueue> kQueues{
    {.name = "archive"},
    {.name = "badges", .state = {.isStopped = true, .message = "Cleaning"}, .hasOptions = true},
    {.name = "office", .state = {.isAccepting = false}},
    {.name = "visitors", .hasOptions = true},
};

TEST(PrinterRows, AreThoseForCardsALineAndTheOthersWithTheirStates) {
  EXPECT_THAT(printerRows(kQueues, "visitors"),
              ElementsAre(PrinterRow{"badges", "badges · Printer stopped: Cleaning"},
                          PrinterRow{"visitors", "visitors"}, PrinterRow{},
                          PrinterRow{"archive", "archive"},
                          PrinterRow{"office", "office · Printer takes no jobs"}));
}

TEST(PrinterRows, HaveTheChosenOneWhateverTheServerHas) {
  EXPECT_THAT(printerRows({}, "badges/visitors"),
              ElementsAre(PrinterRow{"badges/visitors", "badges/visitors"}));
  EXPECT_EQ(printerRows(kQueues, "badges/visitors").front().queue, "badges/visitors");
  EXPECT_THAT(printerRows({kQueues[0]}, "archive"), ElementsAre(PrinterRow{"archive", "archive"}));
}

TEST(FirstPrinter, IsForCardsWhereThereIsOne) {
  EXPECT_EQ(firstPrinter(kQueues), "badges");
  EXPECT_EQ(firstPrinter({kQueues[0], kQueues[2]}), "archive");
  EXPECT_EQ(firstPrinter({}), "");
}

}  // namespace
}  // namespace cardpanels::dialog
