#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <utility>

#include "dialog/PPDCheck.h"
#include "host/CardKeys.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/ScopedVariable.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::dialog {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::string kFrontResin1 = "frontResinInclude1";

std::string textOf(const Finding& finding) {
  const char* const mark = finding.gravity == Gravity::error     ? "error: "
                           : finding.gravity == Gravity::warning ? "warning: "
                                                                 : "";
  return (finding.line > 0 ? std::to_string(finding.line) + ": " : "") + mark + finding.text;
}

std::vector<std::string> allFound(const std::string& ppd) {
  const test::TemporaryFolder folder;
  std::vector<std::string> texts;
  for (const Finding& each : checkPPD(folder.write("card.ppd", ppd))) texts.push_back(textOf(each));
  return texts;
}

/// The warnings and errors, without those of CUPS.
std::vector<std::string> wrong(const std::string& ppd) {
  auto texts = allFound(ppd);
  std::erase_if(texts, [](const std::string& each) {
    return each.find("cupstestppd: ") != std::string::npos ||
           (each.find("warning: ") == std::string::npos &&
            each.find("error: ") == std::string::npos);
  });
  return texts;
}

/// The sample with everything, changed in one place. A test that changes nothing is none.
std::string sample(const std::string& from, const std::string& to) {
  std::string text = test::fileContent(test::duplexPPD());
  const std::size_t place = text.find(from);
  if (place == std::string::npos) throw std::runtime_error("not in the sample: " + from);
  return text.replace(place, from.size(), to);
}

/// The line of the first place of `part`, as it stands before a finding.
std::string lineOf(const std::string& ppd, const std::string& part) {
  const auto end = ppd.begin() + static_cast<std::ptrdiff_t>(ppd.find(part));
  return std::to_string(1 + std::count(ppd.begin(), end, '\n')) + ": ";
}

TEST(PPDCheck, FindsNothingWrongInTheSample) { EXPECT_THAT(wrong(sample("", "")), IsEmpty()); }

TEST(PPDCheck, TellsThePanelsThatThePlugInMakes) {
  const test::RecordedLog log;
  for (const char* key : host::kCardKeys) {
    const test::TemporaryFolder folder;
    const std::string path =
        folder.write("card.ppd", test::testPPD({test::testOption(key, key, 20)}));
    host::JobOptions job(host::openPPD(path));
    const host::PanelHost host{
        test::builtBundle(), std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job};
    ASSERT_EQ(host.panels().size(), 1U) << key;
    const auto findings = checkPPD(path);
    const auto appears = std::count_if(findings.begin(), findings.end(), [](const auto& each) {
      return each.text.find("” appears") != std::string::npos;
    });
    EXPECT_EQ(appears, 1) << key;
    EXPECT_THAT(findings, Contains(testing::Field(&Finding::text,
                                                  "The panel “" + *host.panels()[0]->panelName() +
                                                      "” appears, with " + key + ".")));
  }
}

TEST(PPDCheck, TellsWhyAPanelDoesNotAppear) {
  EXPECT_THAT(allFound(test::testPPD({test::laminateOption()})),
              Contains("The panel “Peel-Off” does not appear: there is none of frontPO, backPO."));
}

TEST(PPDCheck, FailsWithoutAnyPanel) {
  EXPECT_THAT(wrong(test::testPPD({test::testOption("frontNose", "Nose", 2)})),
              ElementsAre("error: No panel appears: no option is one that a panel shows."));
}

TEST(PPDCheck, NamesTheChoicesThatPanelsGoByPosition) {
  const std::string ppd = sample("", "");
  EXPECT_THAT(
      allFound(ppd),
      AllOf(
          Contains(lineOf(ppd, "*frontRibbon YMCK/") +
                   "Choice 4 of frontRibbon is “Color and Black Resin (YMCK)”: with it the panel "
                   "shows frontResin."),
          Contains(lineOf(ppd, "*backResin DefinedAreas/") +
                   "Choice 12 of backResin is “Defined Areas”: with it the panel shows the fields "
                   "for areas."),
          Contains(lineOf(ppd, "*frontPO DefinedAreas/") +
                   "Choice 13 of frontPO is “Defined Areas”: with it the panel shows the fields "
                   "for areas.")));
}

TEST(PPDCheck, SeesAnAreaChoiceAtAnotherPlace) {
  std::string ppd = sample("*frontResin TopHalf/Top Half: \"\"\n", "");
  const std::string area = "*cardpanelsArea frontResin.TopHalf: \"0mm 0mm 85.6mm 27mm\"\n";
  ppd.erase(ppd.find(area), area.size());
  EXPECT_THAT(
      wrong(ppd),
      ElementsAre(lineOf(ppd, "*frontResin DefinedAreas/") +
                  "warning: “Defined Areas” is choice 11 of frontResin, but the panel shows "
                  "the fields for areas with choice 12."));
}

TEST(PPDCheck, SeesTooFewChoices) {
  const std::string ppd = test::testPPD(
      {test::testOption("frontRibbon", "Ribbon", 3), test::testOption("frontResin", "Resin", 11)},
      test::testAreaOption(kFrontResin1));
  EXPECT_THAT(
      wrong(ppd),
      ElementsAre(
          lineOf(ppd, "*OpenUI *frontRibbon/") +
              "warning: frontRibbon has 3 choices, and the panel shows frontResin only with "
              "choice 4: it never does.",
          lineOf(ppd, "*OpenUI *frontResin/") +
              "warning: frontResin has 11 choices, and the panel shows the fields for areas "
              "only with choice 12: it never does."));
}

TEST(PPDCheck, SeesWhatNoPanelEverShows) {
  EXPECT_THAT(
      wrong(test::testPPD({test::testOption("backResin", "Resin", 2), test::laminateOption()},
                          test::testAreaOption("CustomfrontPeelOff2"))),
      ElementsAre(HasSubstr("No panel ever shows CustomfrontPeelOff2: there is no frontPO."),
                  HasSubstr("No panel ever shows backResin: there is no backRibbon.")));
}

TEST(PPDCheck, SeesFieldsWithoutAnOption) {
  std::string ppd = sample("*OpenUI *CustombackNonPeelOff3/", "*OpenUI *somethingElse/");
  for (const char* each : {"*CloseUI: *CustombackNonPeelOff3", "*DefaultCustombackNonPeelOff3",
                           "*CustombackNonPeelOff3 Default"}) {
    std::string to = each;
    to.replace(to.find("CustombackNonPeelOff3"), 21, "somethingElse");
    ppd.replace(ppd.find(each), std::string(each).size(), to);
  }
  EXPECT_THAT(wrong(ppd),
              ElementsAre(lineOf(ppd, "*backPO DefinedAreas/") +
                          "warning: With “Defined Areas” the fields of all areas show, "
                          "but the PPD lacks CustombackNonPeelOff3: what is typed there "
                          "is refused."));
}

TEST(PPDCheck, SeesKeywordsThatAreNearlyOurs) {
  for (const auto& [keyword, known] :
       {std::pair("frontUvMac", "frontUVMAC"), std::pair("backRibon", "backRibbon"),
        std::pair("cardLaminates", "cardLaminate"),
        std::pair("frontPeelOff1", "CustomfrontPeelOff1"),
        std::pair("CustombackResinExclude2", "backResinExclude2")}) {
    const std::string ppd = test::testPPD({test::testOption(keyword, "Option", 2)});
    EXPECT_THAT(wrong(ppd), Contains(lineOf(ppd, "*OpenUI *" + std::string(keyword)) +
                                     "warning: " + keyword + " is nearly " + known +
                                     ", but panels know only the latter, letter for letter."));
  }
}

TEST(PPDCheck, LeavesKeywordsOfTheirOwnAlone) {
  EXPECT_THAT(wrong(test::testPPD({test::laminateOption(), test::testOption("frontUP", "Up", 2),
                                   test::testOption("frontUV", "UV", 2),
                                   test::testOption("cardLaminate2", "Second", 2)})),
              IsEmpty());
}

TEST(PPDCheck, SeesAreasThatTakeNone) {
  const std::string ppd = sample("*CustomfrontResinInclude1 True/Area: \"pop\"\n", "");
  EXPECT_THAT(
      wrong(ppd),
      ElementsAre(AllOf(HasSubstr(lineOf(ppd, "*OpenUI *frontResinInclude1/") + "error: "),
                        HasSubstr("“*CustomfrontResinInclude1 True/Area: \"pop\"”"),
                        HasSubstr("“*ParamCustomfrontResinInclude1 Area/Area: 1 string 0 83”"))));
}

TEST(PPDCheck, SeesAParameterThatCannotHoldAnArea) {
  const std::string parameter =
      "*ParamCustombackResinExclude3 Area/X Y Width Height: 1 string 0 83";
  for (const auto& [type, found] :
       {std::pair("int 0 83",
                  "error: The parameter of backResinExclude3 is no string, so it takes "
                  "no area."),
        std::pair("string 0 82",
                  "warning: The parameter of backResinExclude3 has room for 82 "
                  "characters; an area can have 83.")}) {
    const std::string changed = parameter.substr(0, parameter.find("string")) + type;
    const std::string ppd = sample(parameter, changed);
    EXPECT_THAT(wrong(ppd), ElementsAre(lineOf(ppd, changed) + found));
  }
}

TEST(PPDCheck, SeesConstraintsThatTakeNoAreaForOne) {
  for (const std::string constraint :
       {"*cupsUIConstraints: \"*cardLaminate Both *frontResinInclude1\"",
        "*UIConstraints: *frontResinInclude1 *cardLaminate Both"}) {
    const std::string ppd = sample("*cupsUIConstraints", constraint + "\n*cupsUIConstraints");
    EXPECT_THAT(wrong(ppd),
                ElementsAre(lineOf(ppd, constraint) +
                            "warning: The constraint names frontResinInclude1 without a choice, so "
                            "“No Area” counts as on, too: write “*frontResinInclude1 Custom”."));
  }
}

TEST(PPDCheck, TakesConstraintsThatNameTheArea) {
  EXPECT_THAT(wrong(sample("*cupsUIConstraints",
                           "*cupsUIConstraints: \"*frontResinInclude1 Custom *cardLaminate Both\"\n"
                           "*cupsUIConstraints: \"*CustomfrontResinInclude2 True *cardLaminate\"\n"
                           "*cupsUIConstraints")),
              IsEmpty());
}

TEST(PPDCheck, SeesADefaultThatCountsAsOn) {
  EXPECT_THAT(wrong(sample("*cupsUIConstraints",
                           "*cupsUIConstraints: \"*frontRibbon *cardLaminate Both\"\n"
                           "*cupsUIConstraints")),
              ElementsAre(HasSubstr("without a choice, so its default “Color and Black Resin "
                                    "(YMCK)” counts as on, too: name the choices.")));
}

TEST(PPDCheck, SeesWrongAndMissingDefaults) {
  const std::string line = "*DefaultbackUV: None";
  const std::string missing = sample(line + "\n", "");
  EXPECT_THAT(wrong(missing),
              ElementsAre(lineOf(missing, "*OpenUI *backUV/") +
                          "warning: backUV has no default: a line “*DefaultbackUV” is missing."));
  const std::string unknown = sample(line, "*DefaultbackUV: Nose");
  EXPECT_THAT(wrong(unknown),
              ElementsAre(lineOf(unknown, "*DefaultbackUV") +
                          "error: The default of backUV, “Nose”, is none of its choices."));
}

TEST(PPDCheck, SeesMissingTranslations) {
  std::string ppd = sample("*fr.Translation cardLaminate/", "*fr.Translation Laminate/");
  const std::string choice = "*fr.cardLaminate Both/";
  ppd.replace(ppd.find(choice), choice.size(), "*fr.cardLaminate Nose/");
  EXPECT_THAT(wrong(ppd),
              ElementsAre(lineOf(ppd, "*OpenUI *cardLaminate/") +
                          "warning: Texts of cardLaminate are missing in the language “fr”: "
                          "*fr.Translation cardLaminate, *fr.cardLaminate Both"));
}

TEST(PPDCheck, TellsThatThereIsOneLanguage) {
  EXPECT_THAT(allFound(test::testPPD({test::laminateOption()})),
              Contains("There is no *cupsLanguages: texts are in one language."));
}

TEST(PPDCheck, TellsWhatCupsFinds) {
  const auto found = allFound(sample("*PCFileName", "*PCFileMame"));
  EXPECT_THAT(found, Contains(AllOf(HasSubstr("error: cupstestppd: "), HasSubstr("PCFileName"),
                                    HasSubstr("(Pages 61-62, section 5.3.)"))));
  EXPECT_THAT(found, Not(Contains(HasSubstr("common prefix"))));
}

TEST(PPDCheck, TellsThatCupsOwnTestIsMissing) {
  const test::TemporaryFolder folder;
  std::filesystem::create_symlink("/usr/bin/env", folder.path() / "env");
  const test::ScopedVariable path("PATH", folder.path().string());
  EXPECT_THAT(allFound(sample("", "")),
              Contains("cupstestppd is not installed, so the rules of CUPS are not checked."));
}

TEST(PPDCheck, FindsWhatStandsInTheOrderOfLines) {
  std::string ppd = sample("*DefaultfrontRibbon: YMCK\n", "");
  const std::string flip = "*DefaultentryCardFlip: ";
  ppd.replace(ppd.find(flip), flip.size(), flip + "No");
  ppd.insert(ppd.find("*cupsUIConstraints"),
             "*cupsUIConstraints: \"*frontRibbon K *frontPO X *backResinExclude1\"\n");
  EXPECT_THAT(wrong(ppd), ElementsAre(HasSubstr("backResinExclude1"), HasSubstr("frontRibbon"),
                                      HasSubstr("entryCardFlip")));
}

}  // namespace
}  // namespace cardpanels::dialog
