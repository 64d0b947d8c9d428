#include <gtest/gtest.h>

#include "host/PPDRecords.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

class PPDRecords : public testing::Test {
 protected:
  const ppd_option_t& option(const std::string& key) const { return *findOption(ppd.get(), key); }

  PPDFile ppd = opened(test::testPPD(
      {test::laminateOption()},
      "*OpenUI *Mark: PickOne\n*DefaultMark: None\n*Mark None: \"\"\n"
      "*CloseUI: *Mark\n*CustomMark True/Other: \"pop pop\"\n"
      "*ParamCustomMark Text/Text: 2 string 0 20\n*ParamCustomMark Size/Size: 1 int 1 9\n"));
};

TEST_F(PPDRecords, AnOptionIsFoundInWhateverCaseByItsWholeKeyword) {
  EXPECT_STREQ(option("CARDlaminate").keyword, "cardLaminate");
  EXPECT_EQ(findOption(ppd.get(), "cardLaminat"), nullptr);
  EXPECT_EQ(findOption(ppd.get(), ""), nullptr);
  EXPECT_EQ(findOption(ppd.get(), std::string("cardLaminate\0x", 14)), nullptr);
}

TEST_F(PPDRecords, AChoiceIsFoundInWhateverCase) {
  EXPECT_STREQ(listedChoice(option("cardLaminate"), "fRONT")->text, "Front Side");
  EXPECT_EQ(listedChoice(option("cardLaminate"), "Fron"), nullptr);
  EXPECT_EQ(listedChoice(option("cardLaminate"), ""), nullptr);
}

TEST_F(PPDRecords, OnlyAnOptionWithParametersHasTheCustomChoice) {
  EXPECT_EQ(customChoice(option("cardLaminate")), nullptr);
  EXPECT_EQ(parameterCount(ppd.get(), option("cardLaminate")), 0);
  EXPECT_TRUE(parametersOf(ppd.get(), option("cardLaminate")).empty());
  EXPECT_STREQ(customChoice(option("Mark"))->text, "Other");
  EXPECT_EQ(parameterCount(ppd.get(), option("Mark")), 2);
  EXPECT_EQ(parametersOf(ppd.get(), option("Mark")).size(), 2U);
}

TEST_F(PPDRecords, TitlesAreThePPDsTextsElseTheKeywords) {
  EXPECT_STREQ(titleOf(option("cardLaminate")), "Card Laminate");
  EXPECT_STREQ(titleOf(option("Mark")), "Mark");
  EXPECT_EQ(titleOf(option("cardLaminate"), "back"), "Back Side");
  EXPECT_EQ(titleOf(option("cardLaminate"), "Gold"), "Gold");
  EXPECT_EQ(titleOf(option("Mark"), "Custom.a b"), "a b");
}

TEST_F(PPDRecords, PageSizeAndPageRegionChooseThePageSize) {
  EXPECT_TRUE(isPageSize(option("PageSize")));
  EXPECT_TRUE(isPageSize(option("PageRegion")));
  EXPECT_FALSE(isPageSize(option("cardLaminate")));
}

}  // namespace
}  // namespace cardpanels::host
