#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Error.h"
#include "host/JobOptions.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Options = std::vector<Option>;

JobOptions jobOf(const std::string& ppd) {
  const test::TemporaryFolder folder;
  return JobOptions(openPPD(folder.write("card.ppd", ppd)));
}

/// An option with one parameter of `type`, and the limits `from` and `to`.
std::string parameterOption(const std::string& type, const std::string& from,
                            const std::string& to) {
  return "*OpenUI *Own/Own Value: PickOne\n*DefaultOwn: None\n*Own None/None: \"\"\n"
         "*CloseUI: *Own\n*CustomOwn True/Other: \"pop\"\n*ParamCustomOwn Only/Only: 1 " +
         type + " " + from + " " + to + "\n";
}

const char* const kTwoParameters =
    "*OpenUI *Mark/Watermark: PickOne\n*DefaultMark: None\n*Mark None/None: \"\"\n"
    "*CloseUI: *Mark\n*CustomMark True/Other: \"pop pop\"\n"
    "*ParamCustomMark Text/Text: 1 string 0 20\n*ParamCustomMark Size/Size: 2 int 1 9\n";

const char* const kCustomPageSize =
    "*CustomPageSize True/Custom: \"pop\"\n*ParamCustomPageSize Width: 1 points 36 300\n"
    "*ParamCustomPageSize Height: 2 points 36 400\n*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
    "*ParamCustomPageSize HeightOffset: 4 points 0 0\n*ParamCustomPageSize Orientation: 5 int 0 3\n"
    "*HWMargins: 0 0 0 0\n*VariablePaperSize: True\n";

class Job : public testing::Test {
 protected:
  JobOptions job =
      jobOf(test::testPPD({test::laminateOption(),
                           {"frontRibbon",
                            "Front Ribbon",
                            {{"Color", "Color"}, {"Mono", "Monochrome"}, {"Resin", "Resin"}},
                            {}}},
                          test::testAreaOption("area") + kTwoParameters + kCustomPageSize));

  /// The name that panels read off the mark.
  std::string markName(const std::string& key) const {
    const ppd_choice_t* const choice = ppdFindMarkedChoice(job.ppd(), key.c_str());
    return choice == nullptr ? "(none)" : choice->choice;
  }

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
  EXPECT_EQ(markName("cardLaminate"), "Front");
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
  EXPECT_EQ(markName("cardLaminate"), "(none)");
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

TEST_F(Job, SavedOptionsThatThePPDDoesNotKnowAreLeftOutAndTold) {
  EXPECT_THAT(
      job.markSaved({{"frontUV", "Full"}, {"cardLaminate", "Gold"}, {"frontRibbon", "Mono"}}),
      ElementsAre(HasSubstr("frontUV=Full"), HasSubstr("cardLaminate=Gold")));
  EXPECT_EQ(job.options(), (Options{{"frontRibbon", "Mono"}}));
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
  EXPECT_EQ(markName("area"), "Custom.1in 1in 2in 2in");
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
  EXPECT_EQ(markName("area"), "Custom.3in 1in 2in 2in");
  EXPECT_THAT(job.request("area", "3in 1in 2in 2in").changes, IsEmpty());
}

TEST_F(Job, NoAreaMarksTheDefaultChoice) {
  for (const std::string text : {"", "Default", "default", "0in 0in 0in 0in"}) {
    job.mark("area", "1in 1in 2in 2in");
    EXPECT_EQ(job.request("area", text).changes, (Options{{"area", "Default"}})) << text;
    EXPECT_EQ(markName("area"), "Default");
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
  EXPECT_EQ(markName("area"), "Custom." + area.substr(1));
  EXPECT_THAT(job.longValues(), IsEmpty());
  job.mark("area", area);
  EXPECT_EQ(markName("area"), "Custom");
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

// Values of the other types

struct TypeCase {
  std::string type;
  std::string from;
  std::string to;
  std::vector<std::string> good;
  std::vector<std::string> bad;
};

class ParameterTypes : public testing::TestWithParam<TypeCase> {};

TEST_P(ParameterTypes, ValuesInsideTheLimitsAreGrantedAndOthersRefused) {
  const TypeCase& param = GetParam();
  JobOptions job = jobOf(test::testPPD({}, parameterOption(param.type, param.from, param.to)));
  for (const std::string& value : param.good) {
    EXPECT_TRUE(job.request("Own", "Custom." + value).granted) << value;
    EXPECT_EQ(job.marked("Own"), "Custom." + value);
  }
  const auto before = job.marked("Own");
  for (const std::string& value : param.bad) {
    const ChangeResult result = job.request("Own", "Custom." + value);
    EXPECT_FALSE(result.granted) << value;
    EXPECT_THAT(result.message, HasSubstr("Own Value"));
    EXPECT_EQ(job.marked("Own"), before);
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, ParameterTypes,
    testing::Values(
        TypeCase{"int", "1", "9", {"1", "9", "+5"}, {"0", "10", "", "5.5", "5x", "99999999999"}},
        TypeCase{"int", "-9", "-1", {"-9", "-1"}, {"0", "-10", "--1", "+-1"}},
        TypeCase{"real", "0.5", "2", {"0.5", "2", "1.25"}, {"0.49", "2.01", "1,5", "nan", "inf"}},
        TypeCase{"curve", "0", "1", {"0", "0.5", "1"}, {"-0.1", "1.1", "half", ""}},
        TypeCase{"invcurve", "0", "1", {"0", "0.5", "1"}, {"-0.1", "1.1", "half", ""}},
        TypeCase{"points",
                 "72",
                 "144",
                 {"72", "2in", "144PT", "50.8mm", "3cm", "0.15ft", "0.03m"},
                 {"71", "2.1in", "2 in", "2yd", "in", ""}},
        TypeCase{"passcode", "4", "6", {"1234", "000000"}, {"123", "1234567", "12a4", ""}},
        TypeCase{"password", "4", "6", {"ab c", "123456"}, {"abc", "abcdefg", "ab\ncd"}},
        TypeCase{"string", "2", "4", {"ab", "ßß", "a\"'\\"}, {"a", "abcde", "€€", "ab\n"}}),
    [](const auto& each) { return each.param.type + std::to_string(each.index); });

TEST(Parameters, ABareNumberIsTakenForTheOnlyParameter) {
  JobOptions job = jobOf(test::testPPD({}, parameterOption("int", "1", "9")));
  EXPECT_TRUE(job.request("Own", "7").granted);
  EXPECT_EQ(job.marked("Own"), "Custom.7");
  EXPECT_EQ(job.request("Own", "12").message,
            "“Own Value” must be a whole number from 1 to 9, not “12”.");
}

TEST(Parameters, AListedChoiceWinsOverTheSameCustomText) {
  JobOptions job = jobOf(test::testPPD({}, parameterOption("string", "0", "20")));
  EXPECT_TRUE(job.request("Own", "NONE").granted);
  EXPECT_EQ(job.marked("Own"), "None");
  EXPECT_TRUE(job.request("Own", "Custom.None").granted);
  EXPECT_EQ(job.marked("Own"), "Custom.None");
}

TEST(Parameters, ACustomDefaultIsMarkedWithItsValue) {
  std::string option = parameterOption("string", "0", "20");
  option.replace(option.find("*DefaultOwn: None"), 17, "*DefaultOwn: Custom.abc");
  JobOptions job = jobOf(test::testPPD({}, option));
  EXPECT_EQ(job.marked("Own"), "Custom.abc");
  EXPECT_THAT(job.options(), IsEmpty());
  EXPECT_TRUE(job.request("Own", "None").granted);
  EXPECT_EQ(job.request("Own", "").changes, (Options{{"Own", "Custom.abc"}}));
}

TEST(Parameters, AnOptionWithoutAListedDefaultIsUnmarkedAgain) {
  std::string option = parameterOption("string", "0", "20");
  option.replace(option.find("*DefaultOwn: None"), 17, "*DefaultOwn: Other");
  JobOptions job = jobOf(test::testPPD({}, option));
  EXPECT_EQ(job.marked("Own"), std::nullopt);
  EXPECT_TRUE(job.request("Own", "").granted);
  job.mark("Own", "abc");
  EXPECT_EQ(job.request("Own", "").changes, (Options{{"Own", "Default"}}));
  EXPECT_EQ(job.marked("Own"), std::nullopt);
}

TEST_F(Job, SeveralParametersComeInBraces) {
  for (const std::string text : {"{Text=\"a b\" Size=3}", "Custom.{Size=3 Text=\"a b\"}"}) {
    job.mark("Mark", "None");
    EXPECT_TRUE(job.request("Mark", text).granted) << text;
    EXPECT_EQ(job.marked("Mark"), "{Text=\"a b\" Size=3}");
    EXPECT_EQ(markName("Mark"), "{Text=\"a b\" Size=3}");
  }
  ppd_coption_t* const custom = ppdFindCustomOption(job.ppd(), "Mark");
  EXPECT_STREQ(ppdFindCustomParam(custom, "Text")->current.custom_string, "a b");
  EXPECT_EQ(ppdFindCustomParam(custom, "Size")->current.custom_int, 3);
}

TEST_F(Job, EachOfSeveralParametersIsChecked) {
  EXPECT_EQ(refusal("Mark", "{Text=a Size=10}"),
            "“Watermark: Size” must be a whole number from 1 to 9, not “10”.");
  EXPECT_EQ(refusal("Mark", "{Text=a}"), "“Watermark” needs a value of the name Size.");
  EXPECT_EQ(refusal("Mark", "{Text=a Size=1 Color=red}"),
            "“Watermark” has no value of the name Color.");
  EXPECT_EQ(refusal("Mark", "{Text=\"a}b\" Size=1}"), "“Watermark: Text” cannot hold braces.");
  EXPECT_THAT(refusal("Mark", "Custom.a"), HasSubstr("write them as {Name=value Name=value}"));
  EXPECT_EQ(refusal("Mark", "a"), "“Watermark” has no choice \"a\".");
}

TEST_F(Job, ACustomPageSizeIsMarked) {
  EXPECT_TRUE(job.request("PageSize", "Custom.54x85.6mm").granted);
  EXPECT_EQ(job.marked("PageSize"), "Custom.54x85.6mm");
  EXPECT_NEAR(ppdPageSize(job.ppd(), nullptr)->width, 153.07, 0.01);
  EXPECT_TRUE(job.request("PageSize", "CR79").granted);
  EXPECT_STREQ(ppdPageSize(job.ppd(), nullptr)->name, "CR79");
}

TEST_F(Job, ABadCustomPageSizeIsRefused) {
  for (const std::string size :
       {"54mm", "x", "54x", "x85mm", "54x85", "1x1m", "54x85yd", "54xx85mm", ""}) {
    const bool inPoints = size == "54x85";  // points, inside the limits
    EXPECT_EQ(job.request("PageSize", "Custom." + size).granted, inPoints) << size;
  }
}

// Conflicts

/// Laminate and UV with `constraints`, and an area that does not go with a ribbon of resin.
JobOptions conflictJob(const std::string& constraints) {
  return jobOf(test::testPPD(
      {{"peelOff", "Peel-Off Front", {{"None", "None"}, {"Full", "Full"}, {"Part", "Part"}}, {}},
       {"ribbon", "Ribbon", {{"Color", "Color"}, {"Mono", "Monochrome"}, {"Gold", "Gold"}}, {}},
       {"uv", "Ultraviolet", {{"Off", "Off"}, {"On", "On"}}, {}},
       {"Collate", "Collate", {{"False", "No"}, {"True", "Yes"}}, {}}},
      test::testAreaOption("area") + constraints));
}

std::string exclusive(const std::string& a, const std::string& b) {
  return "*UIConstraints: *" + a + " *" + b + "\n*UIConstraints: *" + b + " *" + a + "\n";
}

TEST(Conflicts, AConflictIsResolvedByChangingTheOtherOptionAndTold) {
  JobOptions job = conflictJob(exclusive("peelOff Full", "ribbon Mono"));
  job.mark("ribbon", "Mono");
  const ChangeResult result = job.request("peelOff", "Full");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"peelOff", "Full"}, {"ribbon", "Color"}}));
  EXPECT_EQ(result.message,
            "“Ribbon” was changed from “Monochrome” to “Color”, because “Peel-Off Front” is now "
            "“Full”.");
  EXPECT_EQ(job.options(), (Options{{"peelOff", "Full"}, {"ribbon", "Color"}}));
}

TEST(Conflicts, ThePageSizeIsNeverChangedUnasked) {
  JobOptions job = conflictJob(exclusive("peelOff Full", "PageSize CR80"));
  EXPECT_EQ(job.request("peelOff", "Full").message,
            "“Peel-Off Front” cannot be “Full” while “Card Size” is “CR-80”.");
  EXPECT_EQ(job.marked("peelOff"), "None");
  EXPECT_EQ(job.marked("PageSize"), "CR80");
  EXPECT_STREQ(ppdPageSize(job.ppd(), nullptr)->name, "CR80");
}

TEST(Conflicts, APageSizeChangesTheOptionsThatItDoesNotGoWith) {
  JobOptions job = conflictJob(exclusive("peelOff Full", "PageSize CR79"));
  job.mark("peelOff", "Full");
  EXPECT_EQ(job.request("PageSize", "CR79").changes,
            (Options{{"PageSize", "CR79"}, {"peelOff", "None"}}));
}

TEST(Conflicts, AConflictThatCannotBeResolvedIsRefusedAndEveryMarkStays) {
  JobOptions job = conflictJob(exclusive("peelOff Full", "ribbon Color") +
                               exclusive("peelOff Full", "ribbon Mono") +
                               exclusive("peelOff Full", "ribbon Gold"));
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

TEST(Conflicts, EveryOptionOfAConflictIsNamed) {
  JobOptions job = conflictJob("*cupsUIConstraints none: \"*peelOff Full *ribbon Mono *uv On\"\n");
  job.mark("ribbon", "Mono");
  job.mark("uv", "On");
  EXPECT_EQ(job.request("peelOff", "Full").message,
            "“Peel-Off Front” cannot be “Full” while “Ribbon” is “Monochrome” and “Ultraviolet” "
            "is “On”.");
}

TEST(Conflicts, AResolverOfThePPDIsFollowed) {
  JobOptions job = conflictJob(
      "*cupsUIResolver gold: \"*ribbon Gold\"\n"
      "*cupsUIConstraints gold: \"*peelOff Full *ribbon Mono\"\n");
  job.mark("ribbon", "Mono");
  EXPECT_EQ(job.request("peelOff", "Full").changes,
            (Options{{"peelOff", "Full"}, {"ribbon", "Gold"}}));
}

TEST(Conflicts, AnotherOptionsTypedValueIsNotLostUnlessThatIsAllowed) {
  JobOptions job = conflictJob("*UIConstraints: *peelOff Full *Customarea True\n");
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

TEST(Conflicts, ATypedValueThatConflictsIsResolvedToo) {
  JobOptions job = conflictJob("*UIConstraints: *peelOff Full *Customarea True\n");
  job.mark("peelOff", "Full");
  EXPECT_EQ(job.request("area", "1in 1in 2in 2in").changes,
            (Options{{"area", "Custom.1in 1in 2in 2in"}, {"peelOff", "None"}}));
}

TEST(Conflicts, AConflictAmongOtherOptionsThatWasThereBeforeDoesNotRefuse) {
  JobOptions job = conflictJob(exclusive("peelOff Full", "ribbon Mono"));
  job.mark("peelOff", "Full");
  job.mark("ribbon", "Mono");
  const ChangeResult result = job.request("uv", "On");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"uv", "On"}}));
  EXPECT_EQ(result.message, "");
}

TEST(Conflicts, AnUnrelatedConflictDoesNotPreventAResolution) {
  JobOptions job =
      conflictJob(exclusive("peelOff Full", "ribbon") + exclusive("uv On", "Collate True"));
  job.mark("peelOff", "Full");
  job.mark("uv", "On");
  ASSERT_NE(ppdConflicts(job.ppd()), 0);
  const ChangeResult result = job.request("Collate", "True");
  EXPECT_TRUE(result.granted);
  EXPECT_EQ(result.changes, (Options{{"Collate", "True"}, {"uv", "Off"}}));
  EXPECT_EQ(job.marked("peelOff"), "Full");
}

TEST(Conflicts, CollateIsChangedLikeAnyOtherOption) {
  JobOptions job = conflictJob(exclusive("uv On", "Collate True"));
  job.mark("Collate", "True");
  EXPECT_EQ(job.request("uv", "On").changes, (Options{{"uv", "On"}, {"Collate", "False"}}));
}

TEST(Conflicts, AnInstallableOptionIsNotChanged) {
  JobOptions job = conflictJob(
      "*OpenGroup: InstallableOptions/Installed\n*OpenUI *Laminator/Laminator: Boolean\n"
      "*DefaultLaminator: False\n*Laminator False/Not Installed: \"\"\n"
      "*Laminator True/Installed: \"\"\n*CloseUI: *Laminator\n*CloseGroup: InstallableOptions\n" +
      exclusive("peelOff Full", "Laminator False"));
  EXPECT_EQ(job.request("peelOff", "Full").message,
            "“Peel-Off Front” cannot be “Full” while “Laminator” is “Not Installed”.");
}

}  // namespace
}  // namespace cardpanels::host
