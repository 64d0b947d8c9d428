#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

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
  EXPECT_THAT(keys, testing::ElementsAre("Polish"));
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

TEST_F(OtherOptions, ShowACustomValueThatIsMarkedAndNoChoiceThatNeedsOne) {
  EXPECT_EQ(optionRow(job_, "area").items.size(), 1U);
  for (const std::string value :
       {"1in 1in 2in 2in", "1.00000000000001in 1.00000000000001in 2in 2in"}) {
    job_.mark("area", value);
    const OptionRow row = optionRow(job_, "area");
    EXPECT_THAT(titles(row), testing::Contains(value)) << value;
    EXPECT_EQ(row.items.size(), 2U);
    ASSERT_TRUE(row.chosen);
    EXPECT_EQ(row.items[*row.chosen].choice, "Custom." + value);
  }
}

}  // namespace
}  // namespace cardpanels::dialog
