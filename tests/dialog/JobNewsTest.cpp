#include <gtest/gtest.h>

#include "dialog/JobNews.h"

namespace cardpanels::dialog {
namespace {

using host::JobState;

TEST(JobNews, TellThatThePrinterHasStoppedOnceEachTime) {
  JobNews news("card");
  const JobsRead runs{.jobs = {{1, JobState{}}}};
  JobsRead stopped = runs;
  stopped.printer = {.isStopped = true, .message = "Cleaning"};
  EXPECT_EQ(news.next(runs), std::nullopt);
  EXPECT_EQ(news.next(stopped), (News{"card", "Printer stopped: Cleaning"}));
  EXPECT_EQ(news.next(stopped), std::nullopt);
  EXPECT_EQ(news.next(runs), std::nullopt);
  EXPECT_TRUE(news.next(stopped));
}

TEST(JobNews, TellInTheEndWhatBecameOfTheJobs) {
  JobNews news("card");
  EXPECT_EQ(news.next({.jobs = {{1, JobState{IPP_JSTATE_COMPLETED}},
                                {2, JobState{IPP_JSTATE_CANCELED}},
                                {3, std::nullopt}}}),
            (News{"card: 1 of 3 jobs printed",
                  "card-2: Job cancelled\ncard-3: Not known to the print server any more"}));
}

}  // namespace
}  // namespace cardpanels::dialog
