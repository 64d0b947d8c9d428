#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Error.h"
#include "host/JobOptions.h"
#include "tests/host/TestJob.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Options = std::vector<Option>;

class Job : public testing::Test {
 protected:
  JobOptions job =
      jobOf(test::testPPD({test::laminateOption(),
                           {"frontRibbon",
                            "Front Ribbon",
                            {{"Color", "Color"}, {"Mono", "Monochrome"}, {"Resin", "Resin"}},
                            {}}},
                          test::testAreaOption("area")));

  /// Asks and expects no for an answer, and no change; answers the message.
  std::string refusal(const std::string& key, const platform::Text& choice) {
    const auto before = job.marked(key);
    const ChangeResult result = job.request(key, choice);
    EXPECT_FALSE(result.granted);
    EXPECT_THAT(result.changes, IsEmpty());
    EXPECT_EQ(job.marked(key), before);
    return result.message;
  }
};

TEST_F(Job, TheDefaultsAreMarkedAndNotListed) {
  EXPECT_EQ(job.marked("cardLaminate"), "None");
  EXPECT_THAT(job.options(), IsEmpty());
}

TEST_F(Job, AGrantedChoiceIsMarkedToldAndListed) {
  const ChangeResult result = job.request("cardLaminate", "Front");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"cardLaminate", "Front"}}));
  EXPECT_EQ(result.message, "");
  EXPECT_EQ(markName(job.ppd(), "cardLaminate"), "Front");
  EXPECT_EQ(job.options(), (Options{{"cardLaminate", "Front"}}));
}

TEST_F(Job, AChoiceInOtherLettersIsKeptInThePPDsSpelling) {
  EXPECT_TRUE(job.request("cardLaminate", "fRONT").granted);
  EXPECT_EQ(job.marked("cardLaminate"), "Front");
}

TEST_F(Job, TheMarkedChoiceAgainIsGrantedWithoutAChange) {
  const ChangeResult result = job.request("cardLaminate", "None");
  EXPECT_TRUE(result.granted);
  EXPECT_THAT(result.changes, IsEmpty());
}

TEST(ListedChoices, TakeThePlaceOfACustomValueOfTheirName) {
  JobOptions job = jobOf(test::testPPD(
      {},
      "*OpenUI *Own/Own: PickOne\n*DefaultOwn: None\n*Own None/None: \"\"\n*CloseUI: *Own\n"
      "*CustomOwn True/Other: \"pop\"\n*ParamCustomOwn Only/Only: 1 string 0 9\n"));
  ASSERT_TRUE(job.request("Own", "Custom.None").granted);
  ASSERT_EQ(job.marked("Own"), "Custom.None");
  EXPECT_TRUE(job.request("Own", "None").granted);
  EXPECT_EQ(job.marked("Own"), "None");
}

TEST_F(Job, AnUnknownOptionIsRefusedByName) {
  const ChangeResult result = job.request("frontUV", "None");
  EXPECT_FALSE(result.granted);
  EXPECT_EQ(result.message, "This printer has no option \"frontUV\".");
}

TEST_F(Job, AnAbsentOptionIsRefused) { EXPECT_FALSE(job.request(std::nullopt, "None").granted); }

TEST_F(Job, AnAbsentChoiceIsRefused) {
  EXPECT_EQ(refusal("cardLaminate", std::nullopt), "No choice was given for “Card Laminate”.");
}

TEST_F(Job, AnUnknownChoiceIsRefusedByName) {
  EXPECT_EQ(refusal("cardLaminate", "Gold"), "“Card Laminate” has no choice \"Gold\".");
  EXPECT_EQ(refusal("cardLaminate", ""), "“Card Laminate” has no choice \"\".");
  EXPECT_EQ(refusal("cardLaminate", "Custom.Gold"),
            "“Card Laminate” has no choice \"Custom.Gold\".");
}

TEST_F(Job, AChoiceWithAZeroByteIsUnknown) { refusal("cardLaminate", std::string("Front\0", 6)); }

TEST_F(Job, AKeywordLongerThanLibcupsComparesIsUnknown) {
  EXPECT_FALSE(job.hasOption("cardLaminate" + std::string(60, 'x')));
  EXPECT_TRUE(job.hasOption("cardLaminate"));
}

TEST_F(Job, MarkingTellsAnUnknownOptionOrChoice) {
  EXPECT_THROW(job.mark("frontUV", "None"), Error);
  EXPECT_THROW(job.mark("cardLaminate", "Gold"), Error);
  job.mark("cardLaminate", "Both");
  EXPECT_EQ(job.marked("cardLaminate"), "Both");
}

TEST_F(Job, UnmarkingLeavesNothingMarkedAndNothingListed) {
  job.mark("cardLaminate", "Both");
  job.unmark("cardLaminate");
  EXPECT_EQ(job.marked("cardLaminate"), std::nullopt);
  EXPECT_EQ(markName(job.ppd(), "cardLaminate"), "(none)");
  EXPECT_THAT(job.options(), IsEmpty());
  EXPECT_THROW(job.unmark("frontUV"), Error);
  EXPECT_THROW(job.marked("frontUV"), Error);
}

TEST_F(Job, TitlesAreThePPDsTextsElseTheKeywords) {
  EXPECT_EQ(job.optionTitle("cardLaminate"), "Card Laminate");
  EXPECT_EQ(job.choiceTitle("cardLaminate", "Front"), "Front Side");
  EXPECT_EQ(job.optionTitle("frontUV"), "frontUV");
  EXPECT_EQ(job.choiceTitle("cardLaminate", "Gold"), "Gold");
  EXPECT_EQ(job.choiceTitle("area", "Custom.1in 1in 2in 2in"), "1in 1in 2in 2in");
}

TEST_F(Job, OptionsComeInThePPDsOrder) {
  job.mark("frontRibbon", "Mono");
  job.mark("cardLaminate", "Front");
  job.mark("area", "1in 1in 2in 2in");
  EXPECT_EQ(job.options(), (Options{{"area", "Custom.1in 1in 2in 2in"},
                                    {"cardLaminate", "Front"},
                                    {"frontRibbon", "Mono"}}));
}

// Saved options

TEST_F(Job, SavedOptionsAreMarkedAndListed) {
  EXPECT_THAT(job.markSaved({{"cardLaminate", "None"}, {"area", "Custom.1in 1in 2in 2in"}}),
              IsEmpty());
  EXPECT_EQ(job.options(), (Options{{"area", "Custom.1in 1in 2in 2in"}, {"cardLaminate", "None"}}));
}

// Else the print server would add what it knows itself.
TEST_F(Job, SavedOptionsThatThePPDDoesNotKnowAreLeftOutForTheDefaultAndTold) {
  EXPECT_THAT(
      job.markSaved({{"frontUV", "Full"}, {"cardLaminate", "Gold"}, {"frontRibbon", "Mono"}}),
      ElementsAre(HasSubstr("frontUV=Full"), HasSubstr("cardLaminate=Gold")));
  EXPECT_EQ(job.options(), (Options{{"cardLaminate", "None"}, {"frontRibbon", "Mono"}}));
}

TEST_F(Job, AnOptionPutBackToItsDefaultAfterASavedOneIsListed) {
  job.markSaved({{"cardLaminate", "Front"}, {"area", "Custom.1in 1in 2in 2in"}});
  EXPECT_TRUE(job.request("cardLaminate", "None").granted);
  EXPECT_TRUE(job.request("area", "").granted);
  EXPECT_EQ(job.options(), (Options{{"area", "Default"}, {"cardLaminate", "None"}}));
}

TEST_F(Job, EmptyAreasThatWereEmptyBeforeAreNotListed) {
  EXPECT_TRUE(job.request("area", "").granted);
  EXPECT_THAT(job.options(), IsEmpty());
}

// Areas

TEST_F(Job, ABareAreaMarksItsValueInTheChoicesName) {
  const ChangeResult result = job.request("area", "1in 1in 2in 2in");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"area", "Custom.1in 1in 2in 2in"}}));
  EXPECT_EQ(markName(job.ppd(), "area"), "Custom.1in 1in 2in 2in");
  EXPECT_EQ(job.marked("area"), "Custom.1in 1in 2in 2in");
}

TEST_F(Job, APrefixedAreaIsTheSame) {
  EXPECT_TRUE(job.request("area", "custom.1in 1in 2in 2in").granted);
  EXPECT_EQ(job.marked("area"), "Custom.1in 1in 2in 2in");
}

TEST_F(Job, LibcupsHasTheAreaAsTheParametersValue) {
  job.mark("area", "1in 1in 2in 2in");
  ppd_coption_t* const custom = ppdFindCustomOption(job.ppd(), "area");
  EXPECT_STREQ(ppdFirstCustomParam(custom)->current.custom_string, "1in 1in 2in 2in");
}

TEST_F(Job, ASecondAreaTakesThePlaceOfTheFirst) {
  job.mark("area", "1in 1in 2in 2in");
  EXPECT_EQ(job.request("area", "3in 1in 2in 2in").changes,
            (Options{{"area", "Custom.3in 1in 2in 2in"}}));
  EXPECT_EQ(markName(job.ppd(), "area"), "Custom.3in 1in 2in 2in");
  EXPECT_THAT(job.request("area", "3in 1in 2in 2in").changes, IsEmpty());
}

TEST_F(Job, NoAreaMarksTheDefaultChoice) {
  for (const std::string text : {"", "Default", "default", "0in 0in 0in 0in"}) {
    job.mark("area", "1in 1in 2in 2in");
    EXPECT_EQ(job.request("area", text).changes, (Options{{"area", "Default"}})) << text;
    EXPECT_EQ(markName(job.ppd(), "area"), "Default");
  }
}

TEST_F(Job, TheRecordHasItsOwnNameOnceAnotherChoiceIsMarked) {
  job.mark("area", "1in 1in 2in 2in");
  job.mark("area", "Default");
  ppd_option_t* const option = ppdFindOption(job.ppd(), "area");
  EXPECT_STREQ(option->choices[option->num_choices - 1].choice, "Custom");
}

TEST_F(Job, AnAreaOf40BytesWithItsPrefixFitsIntoTheName) {
  const std::string area = "1.2345in 1.2345in 2.2345in 2.234in";
  ASSERT_EQ(area.size(), 34U);
  job.mark("area", area.substr(1));
  EXPECT_EQ(markName(job.ppd(), "area"), "Custom." + area.substr(1));
  EXPECT_THAT(job.longValues(), IsEmpty());
  job.mark("area", area);
  EXPECT_EQ(markName(job.ppd(), "area"), "Custom");
  EXPECT_EQ(job.longValues(), (Options{{"area", "Custom." + area}}));
}

TEST_F(Job, ALongAreaLosesNoDigit) {
  const std::string area = "12345678901234567.5in 12345678901234567.5in 1.234567890123456in 2.5in";
  EXPECT_TRUE(job.request("area", area).granted);
  EXPECT_EQ(job.marked("area"), "Custom." + area);
  EXPECT_EQ(job.options(), (Options{{"area", "Custom." + area}}));
}

TEST_F(Job, AnAreaMayHoldInchMarksQuotesAndBackslashes) {
  const std::string area = "1\" 1\" 2\" 2\"'\\ $HOME `x`";
  EXPECT_TRUE(job.request("area", area).granted);
  EXPECT_EQ(job.marked("area"), "Custom." + area);
}

TEST_F(Job, AValueWithALineEndOrAnotherControlCharacterIsRefused) {
  for (const std::string text : {"1in\n2in", "1in\t2in", "\x1B[31m", "a\x7F"}) {
    EXPECT_THAT(refusal("area", text), HasSubstr("on one line")) << text;
  }
  refusal("area", std::string("1in\0"
                              "2in",
                              7));
}

TEST_F(Job, AValueThatIsNotUTF8IsRefused) { refusal("area", "\xFF\xFE"); }

TEST_F(Job, AValueLongerThanThePPDAllowsIsRefused) {
  EXPECT_TRUE(job.request("area", std::string(83, '1')).granted);
  EXPECT_EQ(
      refusal("area", std::string(84, '1')),
      "“area” must have 0 to 83 bytes of text on one line, not “" + std::string(84, '1') + "”.");
}

TEST_F(Job, TheChoiceCustomAloneNeedsAValue) {
  EXPECT_EQ(refusal("area", "Custom"), "“area” needs a value: Custom. and the value.");
  job.mark("area", "1in 1in 2in 2in");
  EXPECT_TRUE(job.request("area", "Custom").granted);
  EXPECT_EQ(job.marked("area"), "Custom.1in 1in 2in 2in");
}

TEST_F(Job, TheOnlyParameterMayBeNamedInBraces) {
  EXPECT_TRUE(job.request("area", "{Area=\"1in 1in 2in 2in\"}").granted);
  EXPECT_EQ(job.marked("area"), "Custom.1in 1in 2in 2in");
  EXPECT_TRUE(job.request("area", "{plain text}").granted);
  EXPECT_EQ(job.marked("area"), "Custom.{plain text}");
}

TEST_F(Job, ItsStateComesBackWhole) {
  job.mark("area", "1in 1in 1in 1in");
  const JobOptions::State before = job.state();
  ASSERT_TRUE(job.requestAll({{"cardLaminate", "Front"}, {"area", "2in 2in 2in 2in"}}).granted);
  ASSERT_TRUE(job.request("frontRibbon", "Color").granted);
  job.requestAll({{"frontRibbon", "Color"}});
  ASSERT_EQ(job.options().size(), 3);
  job.restore(before);
  EXPECT_EQ(job.options(), (Options{{"area", "Custom.1in 1in 1in 1in"}}));
  EXPECT_EQ(job.marked("cardLaminate"), "None");
}

TEST(StateOfAJob, HoldsWhatRulesHaveChanged) {
  JobOptions job =
      jobOf(test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd"));
  job.mark("cardLaminate", "Both");
  const JobOptions::State before = job.state();
  ASSERT_TRUE(job.request("PageSize", "CR79").granted);
  ASSERT_EQ(job.ruleChanges().size(), 1);
  job.restore(before);
  EXPECT_THAT(job.ruleChanges(), IsEmpty());
  EXPECT_EQ(job.marked("cardLaminate"), "Both");
}

}  // namespace
}  // namespace cardpanels::host
