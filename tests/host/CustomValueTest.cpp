#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/CustomValue.h"
#include "host/Error.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using Options = std::vector<Option>;

/// An option with one parameter of `type`, and the limits `from` and `to`.
std::string parameterOption(const std::string& type, const std::string& from,
                            const std::string& to) {
  return "*OpenUI *Own/Own Value: PickOne\n*DefaultOwn: None\n*Own None/None: \"\"\n"
         "*CloseUI: *Own\n*CustomOwn True/Other: \"pop\"\n*ParamCustomOwn Only/Only: 1 " +
         type + " " + from + " " + to + "\n";
}

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

TEST(OneParameter, ABareNumberIsTakenForTheOnlyParameter) {
  JobOptions job = jobOf(test::testPPD({}, parameterOption("int", "1", "9")));
  EXPECT_TRUE(job.request("Own", "7").granted);
  EXPECT_EQ(job.marked("Own"), "Custom.7");
  EXPECT_EQ(job.request("Own", "12").message,
            "“Own Value” must be a whole number from 1 to 9, not “12”.");
}

TEST(OneParameter, TellsWhatAValueMustBe) {
  const auto told = [](const std::string& type, const std::string& minimum,
                       const std::string& maximum, const std::string& value) {
    JobOptions job = jobOf(test::testPPD({}, parameterOption(type, minimum, maximum)));
    return job.request("Own", "Custom." + value).message;
  };
  EXPECT_EQ(told("real", "0.5", "2", "3"), "“Own Value” must be a number from 0.5 to 2, not “3”.");
  EXPECT_EQ(
      told("points", "72", "144", "3in"),
      "“Own Value” must be a length from 72 to 144 points (units: pt, in, ft, cm, mm, m), not "
      "“3in”.");
  EXPECT_EQ(told("passcode", "4", "6", "123"), "“Own Value” must have 4 to 6 digits.");
  EXPECT_EQ(told("password", "4", "6", "abc"), "“Own Value” must have 4 to 6 characters.");
  EXPECT_EQ(told("string", "2", "4", "abcde"),
            "“Own Value” must have 2 to 4 bytes of text on one line, not “abcde”.");
}

TEST(OneParameter, AnOptionWithoutOneTakesNoValueOfOnesOwn) {
  const PPDFile ppd = opened(test::testPPD({test::laminateOption()}));
  try {
    checkedCustomValue(ppd.get(), *ppdFindOption(ppd.get(), "cardLaminate"), "Custom.1in");
    ADD_FAILURE() << "it took one";
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "“Card Laminate” takes no value of one's own.");
  }
}

TEST(OneParameter, AListedChoiceWinsOverTheSameCustomText) {
  JobOptions job = jobOf(test::testPPD({}, parameterOption("string", "0", "20")));
  EXPECT_TRUE(job.request("Own", "NONE").granted);
  EXPECT_EQ(job.marked("Own"), "None");
  EXPECT_TRUE(job.request("Own", "Custom.None").granted);
  EXPECT_EQ(job.marked("Own"), "Custom.None");
}

TEST(OneParameter, ACustomDefaultIsMarkedWithItsValue) {
  std::string option = parameterOption("string", "0", "20");
  option.replace(option.find("*DefaultOwn: None"), 17, "*DefaultOwn: Custom.abc");
  JobOptions job = jobOf(test::testPPD({}, option));
  EXPECT_EQ(job.marked("Own"), "Custom.abc");
  EXPECT_THAT(job.options(), IsEmpty());
  EXPECT_TRUE(job.request("Own", "None").granted);
  EXPECT_EQ(job.request("Own", "").changes, (Options{{"Own", "Custom.abc"}}));
}

TEST(OneParameter, AnOptionWithoutAListedDefaultIsUnmarkedAgain) {
  std::string option = parameterOption("string", "0", "20");
  option.replace(option.find("*DefaultOwn: None"), 17, "*DefaultOwn: Other");
  JobOptions job = jobOf(test::testPPD({}, option));
  EXPECT_EQ(job.marked("Own"), std::nullopt);
  EXPECT_TRUE(job.request("Own", "").granted);
  job.mark("Own", "abc");
  EXPECT_EQ(job.request("Own", "").changes, (Options{{"Own", "Default"}}));
  EXPECT_EQ(job.marked("Own"), std::nullopt);
}

class CustomValues : public testing::Test {
 protected:
  /// Asks and expects no for an answer, and no change; answers the message.
  std::string refusal(const std::string& key, const std::string& choice) {
    const auto before = job.marked(key);
    const ChangeResult result = job.request(key, choice);
    EXPECT_FALSE(result.granted);
    EXPECT_EQ(job.marked(key), before);
    return result.message;
  }

  JobOptions job = jobOf(test::testPPD({}, std::string(kTwoParameters) + kCustomPageSize));
};

TEST_F(CustomValues, SeveralParametersComeInBraces) {
  for (const std::string text : {"{Text=\"a b\" Size=3}", "Custom.{Size=3 Text=\"a b\"}"}) {
    job.mark("Mark", "None");
    EXPECT_TRUE(job.request("Mark", text).granted) << text;
    EXPECT_EQ(job.marked("Mark"), "{Text=\"a b\" Size=3}");
    EXPECT_EQ(markName(job.ppd(), "Mark"), "{Text=\"a b\" Size=3}");
  }
  ppd_coption_t* const custom = ppdFindCustomOption(job.ppd(), "Mark");
  EXPECT_STREQ(ppdFindCustomParam(custom, "Text")->current.custom_string, "a b");
  EXPECT_EQ(ppdFindCustomParam(custom, "Size")->current.custom_int, 3);
}

TEST_F(CustomValues, EachOfSeveralParametersIsChecked) {
  EXPECT_EQ(refusal("Mark", "{Text=a Size=10}"),
            "“Watermark: Size” must be a whole number from 1 to 9, not “10”.");
  EXPECT_EQ(refusal("Mark", "{Text=a}"), "“Watermark” needs a value of the name Size.");
  EXPECT_EQ(refusal("Mark", "{Text=a Size=1 Color=red}"),
            "“Watermark” has no value of the name Color.");
  EXPECT_EQ(refusal("Mark", "{Text=\"a}b\" Size=1}"), "“Watermark: Text” cannot hold braces.");
  EXPECT_THAT(refusal("Mark", "Custom.a"), HasSubstr("write them as {Name=value Name=value}"));
  EXPECT_EQ(refusal("Mark", "a"), "“Watermark” has no choice \"a\".");
}

TEST_F(CustomValues, ACustomPageSizeIsMarked) {
  EXPECT_TRUE(job.request("PageSize", "Custom.54x85.6mm").granted);
  EXPECT_EQ(job.marked("PageSize"), "Custom.54x85.6mm");
  EXPECT_NEAR(ppdPageSize(job.ppd(), nullptr)->width, 153.07, 0.01);
  EXPECT_TRUE(job.request("PageSize", "CR79").granted);
  EXPECT_STREQ(ppdPageSize(job.ppd(), nullptr)->name, "CR79");
}

TEST_F(CustomValues, ABadCustomPageSizeIsRefused) {
  for (const std::string size :
       {"54mm", "x", "54x", "x85mm", "54x85", "1x1m", "54x85yd", "54xx85mm", ""}) {
    const bool inPoints = size == "54x85";  // points, inside the limits
    EXPECT_EQ(job.request("PageSize", "Custom." + size).granted, inPoints) << size;
  }
}

}  // namespace
}  // namespace cardpanels::host
