#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Resolution.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::IsEmpty;
using Options = std::vector<Option>;

TEST(Resolution, AConflictIsResolvedByChangingTheOtherOptionAndTold) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono")));
  job.mark("ribbon", "Mono");
  const ChangeResult result = job.request("peelOff", "Full");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"peelOff", "Full"}, {"ribbon", "Color"}}));
  EXPECT_EQ(result.message,
            "“Ribbon” was changed from “Monochrome” to “Color”, because “Peel-Off Front” is now "
            "“Full”.");
  EXPECT_EQ(job.options(), (Options{{"peelOff", "Full"}, {"ribbon", "Color"}}));
}

TEST(Resolution, ThePageSizeIsNeverChangedUnasked) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "PageSize CR80")));
  EXPECT_EQ(job.request("peelOff", "Full").message,
            "“Peel-Off Front” cannot be “Full” while “Card Size” is “CR-80”.");
  EXPECT_EQ(job.marked("peelOff"), "None");
  EXPECT_EQ(job.marked("PageSize"), "CR80");
  EXPECT_STREQ(ppdPageSize(job.ppd(), nullptr)->name, "CR80");
}

TEST(Resolution, APageSizeChangesTheOptionsThatItDoesNotGoWith) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "PageSize CR79")));
  job.mark("peelOff", "Full");
  EXPECT_EQ(job.request("PageSize", "CR79").changes,
            (Options{{"PageSize", "CR79"}, {"peelOff", "None"}}));
}

TEST(Resolution, AConflictThatCannotBeResolvedIsRefusedAndEveryMarkStays) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Color") +
                                     exclusive("peelOff Full", "ribbon Mono") +
                                     exclusive("peelOff Full", "ribbon Gold")));
  job.mark("area", "1.2345in 1.2345in 2.2345in 2.2345in");
  const Options before = job.options();
  const ChangeResult result = job.request("peelOff", "Full");
  EXPECT_FALSE(result.granted);
  EXPECT_THAT(result.changes, IsEmpty());
  EXPECT_EQ(result.message, "“Peel-Off Front” cannot be “Full” while “Ribbon” is “Color”.");
  EXPECT_EQ(job.options(), before);
  ppd_coption_t* const custom = ppdFindCustomOption(job.ppd(), "area");
  EXPECT_STREQ(ppdFirstCustomParam(custom)->current.custom_string,
               "1.2345in 1.2345in 2.2345in 2.2345in");
}

TEST(Resolution, EveryOptionOfAConflictIsNamed) {
  JobOptions job =
      jobOf(conflictPPD("*cupsUIConstraints none: \"*peelOff Full *ribbon Mono *uv On\"\n"));
  job.mark("ribbon", "Mono");
  job.mark("uv", "On");
  EXPECT_EQ(job.request("peelOff", "Full").message,
            "“Peel-Off Front” cannot be “Full” while “Ribbon” is “Monochrome” and “Ultraviolet” "
            "is “On”.");
}

TEST(Resolution, AResolverOfThePPDIsFollowed) {
  JobOptions job =
      jobOf(conflictPPD("*cupsUIResolver gold: \"*ribbon Gold\"\n"
                        "*cupsUIConstraints gold: \"*peelOff Full *ribbon Mono\"\n"));
  job.mark("ribbon", "Mono");
  EXPECT_EQ(job.request("peelOff", "Full").changes,
            (Options{{"peelOff", "Full"}, {"ribbon", "Gold"}}));
}

TEST(Resolution, AnotherOptionsTypedValueIsNotLostUnlessThatIsAllowed) {
  JobOptions job = jobOf(conflictPPD("*UIConstraints: *peelOff Full *Customarea True\n"));
  job.mark("area", "1in 1in 2in 2in");
  const ChangeResult refused = job.request("peelOff", "Full");
  EXPECT_FALSE(refused.granted);
  EXPECT_TRUE(refused.losesValues);
  EXPECT_EQ(refused.message,
            "“Peel-Off Front” was not changed to “Full”, because that would remove “1in 1in 2in "
            "2in” of “area”.");
  EXPECT_EQ(job.marked("area"), "Custom.1in 1in 2in 2in");
  EXPECT_EQ(job.marked("peelOff"), "None");

  const ChangeResult result = job.request("peelOff", "Full", Losing::allowed);
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"peelOff", "Full"}, {"area", "Default"}}));
  EXPECT_EQ(result.message,
            "“area” was changed from “1in 1in 2in 2in” to “None”, because “Peel-Off Front” is now "
            "“Full”.");
}

TEST(Resolution, ATypedValueThatConflictsIsResolvedToo) {
  JobOptions job = jobOf(conflictPPD("*UIConstraints: *peelOff Full *Customarea True\n"));
  job.mark("peelOff", "Full");
  EXPECT_EQ(job.request("area", "1in 1in 2in 2in").changes,
            (Options{{"area", "Custom.1in 1in 2in 2in"}, {"peelOff", "None"}}));
}

TEST(Resolution, AConflictAmongOtherOptionsThatWasThereBeforeDoesNotRefuse) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono")));
  job.mark("peelOff", "Full");
  job.mark("ribbon", "Mono");
  const ChangeResult result = job.request("uv", "On");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"uv", "On"}}));
  EXPECT_EQ(result.message, "");
}

TEST(Resolution, AnUnrelatedConflictDoesNotPreventAResolution) {
  JobOptions job =
      jobOf(conflictPPD(exclusive("peelOff Full", "ribbon") + exclusive("uv On", "Collate True")));
  job.mark("peelOff", "Full");
  job.mark("uv", "On");
  ASSERT_NE(ppdConflicts(job.ppd()), 0);
  const ChangeResult result = job.request("Collate", "True");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"Collate", "True"}, {"uv", "Off"}}));
  EXPECT_EQ(job.marked("peelOff"), "Full");
}

TEST(Resolution, CollateIsChangedLikeAnyOtherOption) {
  JobOptions job = jobOf(conflictPPD(exclusive("uv On", "Collate True")));
  job.mark("Collate", "True");
  EXPECT_EQ(job.request("uv", "On").changes, (Options{{"uv", "On"}, {"Collate", "False"}}));
}

TEST(Resolution, AnInstallableOptionIsNotChanged) {
  JobOptions job = jobOf(conflictPPD(
      "*OpenGroup: InstallableOptions/Installed\n*OpenUI *Laminator/Laminator: Boolean\n"
      "*DefaultLaminator: False\n*Laminator False/Not Installed: \"\"\n"
      "*Laminator True/Installed: \"\"\n*CloseUI: *Laminator\n*CloseGroup: InstallableOptions\n" +
      exclusive("peelOff Full", "Laminator False")));
  EXPECT_EQ(job.request("peelOff", "Full").message,
            "“Peel-Off Front” cannot be “Full” while “Laminator” is “Not Installed”.");
}

}  // namespace
}  // namespace cardpanels::host
