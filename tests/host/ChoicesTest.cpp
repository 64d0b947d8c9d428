#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Error.h"
#include "host/JobOptions.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::IsEmpty;
using Options = std::vector<Option>;

/// What is marked of a job's options, for comparing.
Options marksOf(const JobOptions& job) {
  Options all;
  for (const char* key : {"PageSize", "PageRegion", "peelOff", "ribbon", "uv", "area"}) {
    all.push_back({key, job.marked(key).value_or("(none)")});
  }
  return all;
}

/// Expects no for an answer and no change; answers why.
std::string refusalOf(JobOptions& job, const Options& options) {
  const Options before = marksOf(job);
  const ChangeResult result = job.requestAll(options);
  EXPECT_FALSE(result.granted);
  EXPECT_THAT(result.changes, IsEmpty());
  EXPECT_EQ(marksOf(job), before);
  return result.message;
}

TEST(Choices, AreMarkedTogetherAndListed) {
  JobOptions job = jobOf(conflictPPD(""));
  const ChangeResult result =
      job.requestAll({{"ribbon", "Mono"}, {"area", "1in 1in 2in 2in"}, {"peelOff", "None"}});
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.message, "");
  EXPECT_EQ(job.options(),
            (Options{{"area", "Custom.1in 1in 2in 2in"}, {"peelOff", "None"}, {"ribbon", "Mono"}}));
}

TEST(Choices, ThatExcludeEachOtherAreRefusedInEitherOrder) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono")));
  EXPECT_EQ(refusalOf(job, {{"peelOff", "Full"}, {"ribbon", "Mono"}}),
            "“Peel-Off Front” cannot be “Full” while “Ribbon” is “Monochrome”.");
  EXPECT_EQ(refusalOf(job, {{"ribbon", "Mono"}, {"peelOff", "Full"}}),
            "“Ribbon” cannot be “Monochrome” while “Peel-Off Front” is “Full”.");
}

TEST(Choices, ThatExcludeTheCardsSizeAreRefusedInEitherOrder) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "PageSize CR79")));
  EXPECT_EQ(refusalOf(job, {{"peelOff", "Full"}, {"PageSize", "CR79"}}),
            "“Peel-Off Front” cannot be “Full” while “Card Size” is “CR-79”.");
  EXPECT_EQ(refusalOf(job, {{"PageSize", "CR79"}, {"peelOff", "Full"}}),
            "“Card Size” cannot be “CR-79” while “Peel-Off Front” is “Full”.");
}

TEST(Choices, ThatGoTogetherAreGrantedInEitherOrder) {
  for (const Options& given : {Options{{"peelOff", "Full"}, {"ribbon", "Gold"}},
                               Options{{"ribbon", "Gold"}, {"peelOff", "Full"}}}) {
    JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Color") +
                                       exclusive("peelOff Full", "ribbon Mono")));
    const ChangeResult result = job.requestAll(given);
    EXPECT_TRUE(result.granted) << result.message;
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(job.marked("ribbon"), "Gold");
  }
}

TEST(Choices, OtherOptionsAreChangedForThemAndTold) {
  JobOptions job = jobOf(
      conflictPPD(exclusive("peelOff Full", "ribbon Mono") + exclusive("uv On", "Collate True")));
  job.mark("ribbon", "Mono");
  job.mark("Collate", "True");
  const ChangeResult result = job.requestAll({{"peelOff", "Full"}, {"uv", "On"}});
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.message,
            "“Ribbon” was changed from “Monochrome” to “Color”, because “Peel-Off Front” is now "
            "“Full”. “Collate” was changed from “Yes” to “No”, because “Ultraviolet” is now “On”.");
  EXPECT_EQ(job.ruleChanges().size(), 2U);
}

// libcups protects one option only, and would change the other one first here.
TEST(Choices, NoneIsChangedToResolveTheConflictOfAnother) {
  const std::string ppd = conflictPPD(
      "*cupsUIResolver a: \"*Collate True *uv Off\"\n"
      "*cupsUIConstraints a: \"*peelOff Full *ribbon Mono\"\n"
      "*cupsUIResolver b: \"*ribbon Gold *peelOff None\"\n"
      "*cupsUIConstraints b: \"*uv On *ribbon Mono\"\n");
  for (const Options& given :
       {Options{{"peelOff", "Full"}, {"uv", "On"}}, Options{{"uv", "On"}, {"peelOff", "Full"}}}) {
    JobOptions job = jobOf(ppd);
    job.mark("ribbon", "Mono");
    const ChangeResult result = job.requestAll(given);
    EXPECT_TRUE(result.granted) << result.message;
    EXPECT_EQ(job.marked("peelOff"), "Full");
    EXPECT_EQ(job.marked("uv"), "On");
    EXPECT_EQ(job.marked("ribbon"), "Gold");
  }
}

TEST(Choices, OnlyWhatWasChosenIsNamedAsInTheWay) {
  JobOptions job = jobOf(
      conflictPPD(exclusive("peelOff Full", "ribbon Mono") + exclusive("peelOff Full", "uv On")));
  job.mark("ribbon", "Mono");
  EXPECT_EQ(refusalOf(job, {{"peelOff", "Full"}, {"uv", "On"}}),
            "“Peel-Off Front” cannot be “Full” while “Ultraviolet” is “On”.");
}

// Here the conflict with an earlier choice takes the place of another one, so that there are no
// more.
TEST(Choices, WhatIsChangedForOneGoesWithTheOthers) {
  JobOptions job = jobOf(conflictPPD(
      "*cupsUIResolver a: \"*ribbon Gold *peelOff None\"\n"
      "*cupsUIConstraints a: \"*uv On *ribbon Mono\"\n" +
      exclusive("peelOff Full", "ribbon Gold") + exclusive("ribbon Mono", "Collate True")));
  job.mark("ribbon", "Mono");
  job.mark("Collate", "True");
  EXPECT_EQ(refusalOf(job, {{"peelOff", "Full"}, {"uv", "On"}}),
            "“Peel-Off Front” cannot be “Full” while “Ribbon” is “Gold”.");
}

TEST(Choices, AValueOfAnotherOptionIsNotLostForThem) {
  JobOptions job = jobOf(conflictPPD("*UIConstraints: *peelOff Full *Customarea True\n"));
  job.mark("area", "1in 1in 2in 2in");
  EXPECT_EQ(refusalOf(job, {{"uv", "On"}, {"peelOff", "Full"}}),
            "“Peel-Off Front” was not changed to “Full”, because that would remove “1in 1in 2in "
            "2in” of “area”.");
}

TEST(Choices, OfTheSameOptionTheLastCounts) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono")));
  EXPECT_TRUE(
      job.requestAll({{"ribbon", "Mono"}, {"peelOff", "Full"}, {"RIBBON", "Gold"}}).granted);
  EXPECT_EQ(job.marked("ribbon"), "Gold");
}

TEST(Choices, OfPageSizeAndPageRegionThatDifferAreRefused) {
  JobOptions job = jobOf(conflictPPD(""));
  EXPECT_EQ(refusalOf(job, {{"PageSize", "CR79"}, {"PageRegion", "CR80"}}),
            "“Card Size” cannot be “CR-79” while “Card Size” is “CR-80”.");
  EXPECT_TRUE(job.requestAll({{"PageRegion", "CR79"}, {"PageSize", "CR79"}}).granted);
  EXPECT_EQ(job.options(), (Options{{"PageSize", "CR79"}}));
}

TEST(Choices, AreCheckedOneByOne) {
  JobOptions job = jobOf(conflictPPD(exclusive("peelOff Full", "ribbon Mono")));
  job.check({"peelOff", "Full"});
  job.check({"ribbon", "Mono"});
  EXPECT_THROW(job.check({"ribbon", "Red"}), Error);
  EXPECT_THROW(job.check({"nose", "Big"}), Error);
  EXPECT_EQ(refusalOf(job, {{"peelOff", "Full"}, {"ribbon", "Red"}}),
            "“Ribbon” has no choice \"Red\".");
}

}  // namespace
}  // namespace cardpanels::host
