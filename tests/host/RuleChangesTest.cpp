#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/RuleChanges.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::IsEmpty;

constexpr const char* kRibbonByPeelOff =
    "“Ribbon” was changed from “Monochrome” to “Color”, because “Peel-Off Front” is now “Full”.";

/// A job whose ribbon a rule has changed.
JobOptions changedJob(const std::string& moreRules = {}) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono") + moreRules));
  job.mark("ribbon", "Mono");
  EXPECT_TRUE(job.request("peelOff", "Full").granted);
  return job;
}

TEST(RuleChanges, AreKeptWhateverElseHappens) {
  JobOptions job = changedJob();
  const std::vector<RuleChange> expected{{"ribbon", "Mono", "Color", kRibbonByPeelOff}};
  EXPECT_EQ(job.ruleChanges(), expected);
  job.request("peelOff", "None");
  job.request("uv", "On");
  EXPECT_FALSE(job.request("uv", "Nope").granted);
  EXPECT_EQ(job.ruleChanges(), expected);
}

TEST(RuleChanges, EndWhenTheyAreClosed) {
  JobOptions job = changedJob();
  job.closeRuleChange("peelOff");
  EXPECT_EQ(job.ruleChanges().size(), 1U);
  job.closeRuleChange("ribbon");
  EXPECT_THAT(job.ruleChanges(), IsEmpty());
}

TEST(RuleChanges, EndWhenTheUserChoosesForThemselves) {
  JobOptions job = changedJob();
  job.request("ribbon", "Gold");
  EXPECT_THAT(job.ruleChanges(), IsEmpty());
}

TEST(RuleChanges, OfOneOptionAreOneFromItsFirstValueToItsLast) {
  JobOptions job = changedJob(exclusive("uv On", "ribbon Color"));
  EXPECT_TRUE(job.request("uv", "On").granted);
  ASSERT_EQ(job.ruleChanges().size(), 1U);
  EXPECT_EQ(job.ruleChanges().front().from, "Mono");
  EXPECT_EQ(job.ruleChanges().front().to, "Gold");
  EXPECT_THAT(job.ruleChanges().front().sentence,
              testing::AllOf(testing::HasSubstr("from “Monochrome”"),
                             testing::HasSubstr("because “Ultraviolet” is now “On”")));
}

TEST(RuleChanges, AreNoneOfWhatHadNoValue) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono")));
  job.mark("ribbon", "Mono");
  RuleChanges changes;
  const ppd_option_t& peelOff = *ppdFindOption(job.ppd(), "peelOff");
  const ppd_option_t* const ribbon = ppdFindOption(job.ppd(), "ribbon");
  const Marks marks(opened(conflictPPD({})));
  changes.note(marks, peelOff, {{ribbon, std::nullopt, "Mono"}, {ribbon, "Mono", std::nullopt}});
  EXPECT_THAT(changes.all(), IsEmpty());
}

TEST(RuleChanges, GoWithTheDefaultsThatAreAskedFor) {
  JobOptions job = changedJob();
  const auto changes = job.reset({"peelOff", "ribbon"});
  EXPECT_THAT(job.ruleChanges(), IsEmpty());
  EXPECT_THAT(job.differingKeys(), IsEmpty());
  EXPECT_EQ(changes, (std::vector<Option>{{"peelOff", "None"}}));
  EXPECT_THAT(job.options(),
              testing::IsSupersetOf(std::vector<Option>{{"peelOff", "None"}, {"ribbon", "Color"}}));
}

}  // namespace
}  // namespace cardpanels::host
