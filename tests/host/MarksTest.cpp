#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Marks.h"
#include "host/PPDRecords.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::IsEmpty;

const std::string kLong = "Custom.12345678901234567.5in 1.234567890123456in 2in 2in";

class MarksTest : public testing::Test {
 protected:
  ppd_option_t& option(const std::string& key) { return *findOption(marks.ppd(), key); }

  void setValue(const std::string& key, const std::string& value) {
    const Marks::OwnNames names(marks);
    marks.set(option(key), {customChoice(option(key)), value});
  }

  std::string nameOf(const std::string& key) { return markName(marks.ppd(), key); }

  Marks marks{opened(test::testPPD(
      {test::laminateOption()}, test::testAreaOption("area") + test::testAreaOption("another")))};
};

TEST_F(MarksTest, ARecordCarriesItsValueExceptWhileLibcupsLooks) {
  setValue("area", "Custom.1in 1in 2in 2in");
  EXPECT_EQ(nameOf("area"), "Custom.1in 1in 2in 2in");
  {
    const Marks::OwnNames names(marks);
    EXPECT_EQ(nameOf("area"), "Custom");
    EXPECT_EQ(marks.value(option("area")), "Custom.1in 1in 2in 2in");
  }
  EXPECT_EQ(nameOf("area"), "Custom.1in 1in 2in 2in");
}

TEST_F(MarksTest, OwnNamesLastUntilTheOutermostEnds) {
  setValue("area", "Custom.1in 1in 2in 2in");
  const Marks::OwnNames names(marks);
  marks.defaultMark(option("area"));
  marks.set(option("another"), {customChoice(option("another")), "Custom.2in 2in 2in 2in"});
  marks.restore(marks.snapshot());
  EXPECT_EQ(nameOf("area"), "Custom");
  EXPECT_EQ(nameOf("another"), "Custom");
}

TEST_F(MarksTest, AValueThatDoesNotFitIsKeptBesideTheRecord) {
  setValue("area", kLong);
  EXPECT_EQ(nameOf("area"), "Custom");
  EXPECT_EQ(marks.value(option("area")), kLong);
  EXPECT_EQ(marks.longValues(), (std::vector<Option>{{"area", kLong}}));
}

TEST_F(MarksTest, ACustomValueIsKnownWithAndWithoutItsPrefix) {
  setValue("area", "Custom.1in 1in 2in 2in");
  EXPECT_TRUE(marks.hasCustomValue(option("area"), "Custom.1in 1in 2in 2in"));
  EXPECT_TRUE(marks.hasCustomValue(option("area"), "1in 1in 2in 2in"));
  EXPECT_FALSE(marks.hasCustomValue(option("area"), "1in 1in 2in 3in"));
  EXPECT_FALSE(marks.hasCustomValue(option("cardLaminate"), "None"));
}

TEST_F(MarksTest, AListedChoiceIsNoCustomValueOfItsName) {
  setValue("area", "Custom.Default");
  EXPECT_TRUE(marks.hasCustomValue(option("area"), "Custom.Default"));
  EXPECT_FALSE(marks.hasCustomValue(option("area"), "Default"));
}

TEST_F(MarksTest, WhatIsMarkedIsTheChoiceTogetherWithTheValue) {
  setValue("area", "Custom.1in 1in 2in 2in");
  const Mark mark = marks.mark(option("area"));
  EXPECT_TRUE(marks.isMarked(option("area"), mark));
  EXPECT_FALSE(marks.isMarked(option("area"), {mark.choice, "Custom.2in 1in 2in 2in"}));
  EXPECT_FALSE(marks.isMarked(option("area"), {mark.choice}));
  EXPECT_FALSE(marks.isMarked(option("area"), Mark()));
}

TEST_F(MarksTest, ASnapshotBringsValuesNamesAndParametersBack) {
  setValue("area", "Custom.1in 1in 2in 2in");
  setValue("another", kLong);
  const Marks::Snapshot before = marks.snapshot();
  setValue("area", "Custom.3in 3in 3in 3in");
  marks.set(option("another"), marks.defaultMark(option("another")));
  marks.set(option("cardLaminate"), Mark());

  marks.restore(before);

  EXPECT_THAT(marks.changesSince(before), IsEmpty());
  EXPECT_EQ(nameOf("area"), "Custom.1in 1in 2in 2in");
  EXPECT_EQ(marks.value(option("another")), kLong);
  EXPECT_EQ(nameOf("cardLaminate"), "None");
  ppd_coption_t* const custom = ppdFindCustomOption(marks.ppd(), "area");
  EXPECT_STREQ(ppdFirstCustomParam(custom)->current.custom_string, "1in 1in 2in 2in");
}

TEST_F(MarksTest, ChangesTellTheValuesBeforeAndAfterInThePPDsOrder) {
  setValue("area", "Custom.1in 1in 2in 2in");
  const Marks::Snapshot before = marks.snapshot();
  marks.set(option("cardLaminate"), Mark());
  setValue("another", kLong);
  marks.set(option("area"), marks.defaultMark(option("area")));

  const auto changes = marks.changesSince(before);

  ASSERT_EQ(changes.size(), 3U);
  EXPECT_EQ(changes[0].option, &option("area"));
  EXPECT_EQ(changes[0].from, "Custom.1in 1in 2in 2in");
  EXPECT_EQ(changes[0].to, "Default");
  EXPECT_TRUE(changes[0].losesValue);
  EXPECT_EQ(changes[1].option, &option("another"));
  EXPECT_EQ(changes[1].to, kLong);
  EXPECT_FALSE(changes[1].losesValue);
  EXPECT_EQ(changes[2].option, &option("cardLaminate"));
  EXPECT_EQ(changes[2].from, "None");
  EXPECT_EQ(changes[2].to, std::nullopt);
  EXPECT_FALSE(changes[2].losesValue);
}

TEST_F(MarksTest, AnotherValueInPlaceOfAValueLosesNone) {
  setValue("area", "Custom.1in 1in 2in 2in");
  const Marks::Snapshot before = marks.snapshot();
  setValue("area", "Custom.3in 3in 3in 3in");
  ASSERT_EQ(marks.changesSince(before).size(), 1U);
  EXPECT_FALSE(marks.changesSince(before).front().losesValue);
}

TEST(CustomDefaults, AreMarkedAndFoundAgainWhileTheRecordCarriesTheValue) {
  const Marks marks(opened(
      test::testPPD({},
                    "*OpenUI *Own/Own: PickOne\n*DefaultOwn: Custom.abc\n*Own None/None: \"\"\n"
                    "*CloseUI: *Own\n*CustomOwn True/Other: \"pop\"\n*ParamCustomOwn Only/Only: 1 "
                    "string 0 9\n")));
  const ppd_option_t& own = *findOption(marks.ppd(), "Own");
  EXPECT_EQ(marks.value(own), "Custom.abc");
  EXPECT_EQ(markName(marks.ppd(), "Own"), "Custom.abc");
  EXPECT_TRUE(marks.isMarked(own, marks.defaultMark(own)));
}

TEST(CustomDefaults, ThatTheOptionDoesNotTakeAreNotMarked) {
  for (const char* value : {"Custom.abcdefghij", "\"Custom.a\nb\"", "Custom.\xFF"}) {
    const Marks marks(opened(test::testPPD(
        {}, std::string("*OpenUI *Own/Own: PickOne\n*DefaultOwn: ") + value +
                "\n*Own None/None: \"\"\n*CloseUI: *Own\n*CustomOwn True/Other: \"pop\"\n"
                "*ParamCustomOwn Only/Only: 1 string 0 9\n")));
    EXPECT_EQ(marks.value(*findOption(marks.ppd(), "Own")), std::nullopt) << value;
  }
}

TEST(CustomPageSizes, EndWhenThePageRegionIsMarked) {
  Marks marks(opened(test::testPPD({}, kCustomPageSize)));
  ppd_option_t& size = *findOption(marks.ppd(), "PageSize");
  ppd_option_t& region = *findOption(marks.ppd(), "PageRegion");
  marks.set(size, {customChoice(size), "Custom.54x85.6mm"});
  ASSERT_EQ(marks.value(size), "Custom.54x85.6mm");
  marks.set(region, {listedChoice(region, "CR79")});
  EXPECT_EQ(marks.value(size), std::nullopt);
  EXPECT_EQ(marks.value(region), "CR79");
}

}  // namespace
}  // namespace cardpanels::host
