#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "dialog/OtherOptions.h"
#include "host/Error.h"
#include "tests/host/TestJob.h"

namespace cardpanels::dialog {
namespace {

class OtherOptions : public testing::Test {
 protected:
  static std::vector<std::string> titles(const OptionRow& row) {
    std::vector<std::string> all;
    for (const auto& each : row.items) all.push_back(each.title);
    return all;
  }

  host::JobOptions job_ = host::jobOf(test::testPPD(
      {test::laminateOption(), test::testOption("Polish", "Card Polish", 3, "Choice1"),
       test::testOption("Only", "Only One", 1)},
      test::testAreaOption("area")));
};

TEST_F(OtherOptions, AreWhatNoPanelClaimsAndLeavesAChoice) {
  std::vector<std::string> keys;
  for (const OptionRow& each : otherOptions(job_, {"cardLaminate"})) keys.push_back(each.key);
  EXPECT_THAT(keys, testing::ElementsAre("area", "Polish"));
}

TEST_F(OtherOptions, HaveTheirTitlesAndWhatIsMarked) {
  OptionRow row = optionRow(job_, "Polish");
  EXPECT_EQ(row.title, "Card Polish");
  EXPECT_THAT(titles(row), testing::ElementsAre("Choice 0", "Choice 1", "Choice 2"));
  EXPECT_EQ(row.chosen, 1U);
  job_.mark("Polish", "Choice2");
  EXPECT_EQ(optionRow(job_, "Polish").chosen, 2U);
  EXPECT_THROW(optionRow(job_, "frontUV"), host::Error);
}

TEST_F(OtherOptions, HaveAChoiceForAValueOfOnesOwnThatIsChosenWithTheValue) {
  OptionRow row = optionRow(job_, "area");
  EXPECT_THAT(titles(row), testing::ElementsAre("None", "Custom…"));
  EXPECT_EQ(row.chosen, 0U);
  ASSERT_EQ(row.fields.size(), 1U);
  EXPECT_EQ(row.fields[0].text, "");
  for (const std::string value :
       {"1in 1in 2in 2in", "1.00000000000001in 1.00000000000001in 2in 2in"}) {
    job_.mark("area", value);
    row = optionRow(job_, "area");
    EXPECT_THAT(titles(row), testing::ElementsAre("None", "Custom…")) << value;
    EXPECT_EQ(row.chosen, row.own);
    EXPECT_EQ(row.fields[0].text, value);
  }
}

TEST_F(OtherOptions, ShowAPageSizeOfOnesOwnAsItIs) {
  host::JobOptions job = host::jobOf(test::testPPD({}, host::kCustomPageSize));
  const std::size_t listed = optionRow(job, "PageSize").items.size();
  EXPECT_FALSE(optionRow(job, "PageSize").own);
  job.mark("PageSize", "Custom.54x85.6mm");
  const OptionRow row = optionRow(job, "PageSize");
  EXPECT_FALSE(row.own);
  EXPECT_THAT(row.fields, testing::IsEmpty());
  EXPECT_EQ(row.items.size(), listed + 1);
  ASSERT_TRUE(row.chosen);
  EXPECT_EQ(row.items[*row.chosen].choice, "Custom.54x85.6mm");
}

/// An option with a value of one's own of `type`.
std::string ownOption(const std::string& type, const std::string& words) {
  return "*OpenUI *Own/Own Value: PickOne\n*DefaultOwn: None\n*Own None/None: \"\"\n"
         "*Own Some/Some: \"\"\n*CloseUI: *Own\n*CustomOwn True" +
         words + ": \"pop\"\n*ParamCustomOwn Only/Number: 1 " + type + "\n";
}

/// A user at one option.
class Typing : public testing::Test {
 protected:
  void open(const std::string& lines, const std::string& key) {
    job_.emplace(host::jobOf(test::testPPD({}, lines)));
    option_.emplace(*job_, key, [this, key](const std::string& value) {
      asked_.push_back(value);
      EXPECT_TRUE(job_->request(key, value).granted) << value;
    });
  }

  std::string fault(std::size_t field = 0) const { return option_->row().fields[field].fault; }
  std::string text(std::size_t field = 0) const { return option_->row().fields[field].text; }
  bool isOwnChosen() const { return option_->row().chosen == option_->row().own; }

  std::optional<host::JobOptions> job_;
  std::optional<OtherOption> option_;
  std::vector<std::string> asked_;
};

TEST_F(Typing, BeginsWithTheChoiceAndChangesNothingYet) {
  open(ownOption("int 1 9", ""), "Own");
  option_->choose("Custom");
  EXPECT_TRUE(isOwnChosen());
  EXPECT_EQ(job_->marked("Own"), "None");
  option_->leave();
  EXPECT_EQ(fault(), "") << "the user may just look";
  EXPECT_THAT(asked_, testing::IsEmpty());
  option_->choose("Some");
  EXPECT_FALSE(isOwnChosen());
  EXPECT_EQ(job_->marked("Own"), "Some");
}

TEST_F(Typing, GivesTheJobWhatIsRightAndTellsWhatIsNot) {
  open(ownOption("int 1 9", ""), "Own");
  option_->choose("Custom");
  option_->type(0, "12");
  EXPECT_EQ(fault(), "") << "it is not told before the user goes on";
  option_->leave();
  EXPECT_EQ(fault(), "“Own Value” must be a whole number from 1 to 9, not “12”.");
  EXPECT_EQ(option_->finish(), 0U);
  EXPECT_EQ(job_->marked("Own"), "None");
  option_->type(0, "7");
  EXPECT_EQ(fault(), "");
  option_->leave();
  EXPECT_EQ(job_->marked("Own"), "Custom.7");
  EXPECT_EQ(text(), "7");
  EXPECT_TRUE(isOwnChosen());
  EXPECT_EQ(option_->finish(), std::nullopt);
  EXPECT_THAT(asked_, testing::ElementsAre("Custom.7"));
}

TEST_F(Typing, OfWhatIsWrongAndForgottenLeavesWhatWasMarked) {
  open(ownOption("real 0.5 2", ""), "Own");
  job_->mark("Own", "1.25");
  option_->type(0, "3");
  option_->leave();
  EXPECT_EQ(text(), "3");
  EXPECT_NE(fault(), "");
  option_->forget();
  EXPECT_EQ(text(), "1.25");
  EXPECT_EQ(fault(), "");
  EXPECT_EQ(job_->marked("Own"), "Custom.1.25");
}

TEST_F(Typing, ChecksEachTypeByThePPDsLimits) {
  const std::vector<std::array<std::string, 3>> cases{{"points 72 144", "2.1in", "2in"},
                                                      {"string 2 4", "abcde", "ab"},
                                                      {"passcode 4 6", "12a4", "1234"},
                                                      {"password 4 6", "abc", "ab c"},
                                                      {"real 0.5 2", "1,5", "1.5"}};
  for (const auto& [type, wrong, right] : cases) {
    open(ownOption(type, ""), "Own");
    EXPECT_EQ(option_->row().fields[0].isSecret, type.starts_with("pass")) << type;
    option_->choose("Custom");
    option_->type(0, wrong);
    EXPECT_EQ(option_->finish(), 0U) << type;
    EXPECT_THAT(fault(), testing::HasSubstr("Own Value")) << type;
    option_->type(0, right);
    EXPECT_EQ(option_->finish(), std::nullopt) << type;
    EXPECT_EQ(job_->marked("Own"), "Custom." + right);
  }
}

TEST_F(Typing, OfNothingAtAllIsToldAtTheEndUnlessItIsAValue) {
  open(ownOption("string 1 9", ""), "Own");
  option_->choose("Custom");
  EXPECT_EQ(option_->finish(), 0U);
  EXPECT_NE(fault(), "");
  open(ownOption("string 0 9", ""), "Own");
  job_->mark("Own", "Some");
  option_->choose("Custom");
  EXPECT_EQ(option_->finish(), std::nullopt);
  EXPECT_FALSE(isOwnChosen());
  EXPECT_EQ(job_->marked("Own"), "Some");
}

TEST_F(Typing, NothingInPlaceOfAValueIsTheDefault) {
  open(ownOption("string 0 9", ""), "Own");
  job_->mark("Own", "Custom.abc");
  option_->type(0, "");
  option_->leave();
  EXPECT_EQ(job_->marked("Own"), "Custom.abc") << "another may come";
  EXPECT_EQ(option_->finish(), std::nullopt);
  EXPECT_EQ(job_->marked("Own"), "None");
}

TEST_F(Typing, OfSeveralValuesWaitsForAllOfThem) {
  open(host::kTwoParameters, "Mark");
  EXPECT_EQ(option_->row().fields[1].title, "Size");
  EXPECT_EQ(option_->row().fields[1].name, "Watermark: Size");
  option_->choose("Custom");
  option_->type(0, "a \"b\"");
  option_->leave();
  EXPECT_EQ(fault(1), "") << "it comes next";
  EXPECT_EQ(option_->finish(), 1U);
  EXPECT_EQ(fault(0), "");
  EXPECT_EQ(fault(1), "“Watermark: Size” must be a whole number from 1 to 9, not “”.");
  option_->type(1, "3");
  option_->type(0, "a}b");
  EXPECT_EQ(option_->finish(), 0U);
  EXPECT_EQ(fault(0), "“Watermark: Text” cannot hold braces.");
  option_->type(0, "a \"b\"");
  EXPECT_EQ(option_->finish(), std::nullopt);
  EXPECT_EQ(job_->marked("Mark"), R"({Text="a \"b\"" Size=3})");
  EXPECT_EQ(text(0), "a \"b\"");
  EXPECT_EQ(text(1), "3");
}

TEST_F(Typing, IsOfferedInThePPDsWords) {
  open(ownOption("int 1 9", "/Your number"), "Own");
  const OptionRow row = option_->row();
  ASSERT_TRUE(row.own);
  EXPECT_EQ(row.items[*row.own].title, "Your number");
  EXPECT_EQ(row.fields[0].title, "Number");
}

}  // namespace
}  // namespace cardpanels::dialog
