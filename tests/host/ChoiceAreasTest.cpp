#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

#include "host/ChoiceAreas.h"
#include "host/JobOptions.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

const test::TestOption kPeelOff{.keyword = "frontPO",
                                .text = "Peel-Off",
                                .choices = {{"None", "None"}, {"Chip", "Chip"}, {"Both", "Both"}},
                                .defaultChoice = {}};

JobOptions jobWithLines(const std::string& lines) {
  const test::TemporaryFolder folder;
  return JobOptions(openPPD(folder.write("card.ppd", test::testPPD({kPeelOff}, lines))));
}

/// What opening a PPD with `line` as its third line tells.
std::string faultOf(const std::string& line) {
  const test::TemporaryFolder folder;
  const std::string ppd = test::testPPD({kPeelOff}, line + "\n");
  const std::string path = folder.write("card.ppd", ppd);
  const std::string fault = errorOf([&] { openPPD(path, "card"); });
  const auto lineNumber =
      std::count(ppd.begin(), ppd.begin() + static_cast<std::ptrdiff_t>(ppd.find(line)), '\n') + 1;
  const std::string start = "card:" + std::to_string(lineNumber) + ": ";
  return fault.starts_with(start) ? fault.substr(start.size()) : fault;
}

TEST(ChoiceAreas, AreThoseOfTheMarkedChoice) {
  JobOptions job = jobWithLines(
      "*cardpanelsArea frontPO.Chip: \"10mm 19mm 13mm 12mm\"\n"
      "*cardpanelsArea frontPO.Both: \"0 0 1in 1in\"\n"
      "*cardpanelsArea frontPO.Both: \"1in 0 .5in 1in\"\n");
  EXPECT_THAT(choiceAreas(job, "frontPO"), IsEmpty());
  job.mark("frontPO", "Chip");
  EXPECT_THAT(choiceAreas(job, "frontPO"), ElementsAre(ChoiceArea{"10mm", "19mm", "13mm", "12mm"}));
  EXPECT_THAT(choiceAreas(job, "FRONTPO").size(), 1U);
  job.mark("frontPO", "Both");
  EXPECT_THAT(choiceAreas(job, "frontPO"), ElementsAre(ChoiceArea{"0", "0", "1in", "1in"},
                                                       ChoiceArea{"1in", "0", ".5in", "1in"}));
  EXPECT_THAT(choiceAreas(job, "backPO"), IsEmpty());
}

TEST(ChoiceAreas, AreInTheSamplesForChipStripeAndHalves) {
  JobOptions job(openPPD(test::duplexPPD()));
  for (const auto& [key, choice, count] : {std::tuple{"frontPO", "Chip", 1U},
                                           {"backPO", "Stripe", 1U},
                                           {"frontPO", "ChipStripe", 2U},
                                           {"frontResin", "TopHalf", 1U},
                                           {"backResin", "RightHalf", 1U}}) {
    job.mark(key, choice);
    EXPECT_EQ(choiceAreas(job, key).size(), count) << key << ' ' << choice;
  }
  job.mark("frontPO", "Signature");
  EXPECT_THAT(choiceAreas(job, "frontPO"), IsEmpty());
}

TEST(ChoiceAreas, AnUnknownOptionOrChoiceIsToldWithItsLine) {
  for (const std::string place : {"frontPO.Stripe", "backPO.Chip", "frontPO", "frontPO."}) {
    EXPECT_EQ(
        faultOf("*cardpanelsArea " + place + ": \"1mm 1mm 1mm 1mm\""),
        "*cardpanelsArea names “" + place + "”, which is no choice of an option of this PPD.");
  }
}

TEST(ChoiceAreas, WhatAreNotFourMeasurementsIsToldWithItsLine) {
  for (const std::string value : {"", "1mm 1mm 1mm", "1mm 1mm 1mm 1mm 1mm", "1mm 1mm 1mm tall",
                                  "-1mm 1mm 1mm 1mm", "1mm 1mm 0mm 1mm", "1mm 1mm 1mm 0"}) {
    EXPECT_THAT(faultOf("*cardpanelsArea frontPO.Chip: \"" + value + "\""),
                MatchesRegex("“" + value + "” is no area: .*"));
  }
}

TEST(ChoiceAreas, AnOriginThatIsNoCornerIsToldWithItsLine) {
  EXPECT_EQ(faultOf("*cardpanelsOrigin: Middle"),
            "*cardpanelsOrigin is TopLeft or BottomLeft, not “Middle”.");
  EXPECT_EQ(faultOf("*cardpanelsOrigin: \"bottomleft\""), "no error");
  EXPECT_EQ(faultOf("*cardpanelsOrigin: TopLeft"), "no error");
}

}  // namespace
}  // namespace cardpanels::host
