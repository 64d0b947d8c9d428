#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialog/AreaWarnings.h"
#include "host/CardGeometry.h"
#include "host/JobOptions.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/ScopedLocale.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::dialog {
namespace {

using test::ScopedLocale;
using testing::ElementsAre;
using testing::IsEmpty;
using Column = AreaColumn;
using Columns = std::vector<AreaColumn>;
using Sentences = std::vector<std::string>;

constexpr const char* kFirst = "frontResinInclude1";
constexpr const char* kSecond = "frontResinInclude2";
constexpr const char* kExclude = "frontResinExclude1";

const Columns kAll{Column::x, Column::y, Column::width, Column::height};

/// The front of a CR80 card, 85.6 mm wide and 54 mm high, 300 dpi, with resin in defined areas.
class AreaWarnings : public testing::Test {
 protected:
  AreaWarnings() { job.mark("frontResin", "DefinedAreas"); }

  std::vector<AreaWarning> warnings() const {
    return areaWarnings(job, side, areas, host::cardGeometry(job));
  }

  void put(const std::string& key, const AreaTexts& texts) {
    for (CardArea& area : areas) {
      if (area.key == key) area.texts = texts;
    }
  }

  Sentences sentences() const {
    Sentences all;
    for (const AreaWarning& each : warnings()) all.push_back(each.sentence);
    return all;
  }

  /// What is told of the first area alone.
  Sentences sentencesOf(const AreaTexts& texts) {
    put(kFirst, texts);
    return sentences();
  }

  Columns columnsOf(const AreaTexts& texts) {
    put(kFirst, texts);
    const auto all = warnings();
    EXPECT_EQ(all.size(), 1U);
    EXPECT_EQ(all.at(0).key, kFirst);
    return all.at(0).columns;
  }

  ScopedLocale metric{LC_MEASUREMENT, "de_DE.UTF-8"};
  host::JobOptions job{host::openPPD(test::duplexPPD())};
  const AreaSide& side = areaSides()[0];
  std::vector<CardArea> areas = areasOf(job, side);
};

TEST_F(AreaWarnings, AnAreaOnTheCardIsFine) {
  EXPECT_THAT(sentencesOf({"12mm", "5mm", "25mm", "8mm"}), IsEmpty());
  EXPECT_THAT(sentencesOf({"", "", "1in", "1in"}), IsEmpty());
  EXPECT_THAT(sentencesOf({"0", "0", "1011", "637"}), IsEmpty());
}

TEST_F(AreaWarnings, DefinedAreasNeedAnArea) {
  const auto all = warnings();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].key, "frontResin");
  EXPECT_EQ(all[0].sentence, "“Front Resin” is “Defined Areas”, but there is no area.");
  EXPECT_THAT(all[0].columns, IsEmpty());
}

TEST_F(AreaWarnings, AnAreaToExcludeIsAnAreaAsWell) {
  put(kExclude, {"1mm", "1mm", "1mm", "1mm"});
  EXPECT_THAT(sentences(), IsEmpty());
}

TEST_F(AreaWarnings, ThereIsNoneWhereAreasDoNotCount) {
  put(kFirst, {"90mm", "", "1mm", ""});
  EXPECT_EQ(sentences().size(), 1U);
  job.mark("frontResin", "WholeCard");
  EXPECT_THAT(sentences(), IsEmpty());
  job.mark("frontResin", "DefinedAreas");
  job.mark("frontRibbon", "K");
  EXPECT_THAT(sentences(), IsEmpty());
}

TEST_F(AreaWarnings, AMissingWidthOrHeightIsTold) {
  EXPECT_THAT(sentencesOf({"1in", "1in", "", "1in"}),
              ElementsAre("“Front Resin Area 1” has no width."));
  EXPECT_EQ(columnsOf({"1in", "1in", "", "1in"}), Columns{Column::width});
  EXPECT_THAT(sentencesOf({"1in", "", "1in", ""}),
              ElementsAre("“Front Resin Area 1” has no height."));
  EXPECT_EQ(columnsOf({"1in", "", "1in", ""}), Columns{Column::height});
  EXPECT_THAT(sentencesOf({"1in", "", "", ""}),
              ElementsAre("“Front Resin Area 1” has no width and no height."));
  EXPECT_EQ(columnsOf({"1in", "", "", ""}), (Columns{Column::width, Column::height}));
}

TEST_F(AreaWarnings, AWidthOrHeightOfZeroIsTold) {
  EXPECT_THAT(sentencesOf({"1in", "1in", "0.0mm", "1in"}),
              ElementsAre("The width of “Front Resin Area 1” is zero."));
  EXPECT_THAT(sentencesOf({"1in", "1in", "1in", "0"}),
              ElementsAre("The height of “Front Resin Area 1” is zero."));
  EXPECT_THAT(sentencesOf({"1in", "1in", "0px", "0px"}),
              ElementsAre("The width and the height of “Front Resin Area 1” are zero."));
  EXPECT_EQ(columnsOf({"1in", "1in", "0px", "0px"}), (Columns{Column::width, Column::height}));
  EXPECT_THAT(sentencesOf({"1in", "1in", "", "0px"}),
              ElementsAre("“Front Resin Area 1” has no width.",
                          "The height of “Front Resin Area 1” is zero."));
}

TEST_F(AreaWarnings, AnAreaPartlyOffTheCardIsTold) {
  EXPECT_THAT(sentencesOf({"80mm", "5mm", "8.6mm", "8mm"}),
              ElementsAre("“Front Resin Area 1” is 3 mm outside the card on the right."));
  EXPECT_EQ(columnsOf({"80mm", "5mm", "8.6mm", "8mm"}), (Columns{Column::x, Column::width}));
  EXPECT_THAT(sentencesOf({"8mm", "50mm", "8mm", "5.5mm"}),
              ElementsAre("“Front Resin Area 1” is 1.5 mm outside the card at the bottom."));
  EXPECT_EQ(columnsOf({"8mm", "50mm", "8mm", "5.5mm"}), (Columns{Column::y, Column::height}));
  EXPECT_THAT(
      sentencesOf({"", "", "10cm", "10cm"}),
      ElementsAre("“Front Resin Area 1” is outside the card: 14.4 mm on the right and 46 mm "
                  "at the bottom."));
  EXPECT_EQ(columnsOf({"", "", "10cm", "10cm"}), kAll);
}

TEST_F(AreaWarnings, AnAreaWhollyOffTheCardIsTold) {
  const Sentences told{"“Front Resin Area 1” is wholly outside the card, which is 85.6 × 54 mm."};
  EXPECT_EQ(sentencesOf({"90mm", "5mm", "8mm", "8mm"}), told);
  EXPECT_EQ(columnsOf({"90mm", "5mm", "8mm", "8mm"}), Columns{Column::x});
  EXPECT_EQ(sentencesOf({"5mm", "55mm", "8mm", "8mm"}), told);
  EXPECT_EQ(columnsOf({"5mm", "55mm", "8mm", "8mm"}), Columns{Column::y});
  EXPECT_EQ(columnsOf({"5in", "5in", "8mm", "8mm"}), (Columns{Column::x, Column::y}));
  EXPECT_EQ(sentencesOf({"85.55mm", "5mm", "8mm", "8mm"}), told);
  EXPECT_EQ(sentencesOf({"90mm", "5mm", "0.3mm", "8mm"}), told) << "a line down";
  EXPECT_EQ(sentencesOf({"90mm", "5mm", "8mm", "0.3mm"}), told) << "a line across";
}

TEST_F(AreaWarnings, ATenthOfAMillimeterIsTolerated) {
  EXPECT_THAT(sentencesOf({"0mm", "0mm", "85.69mm", "54.06mm"}), IsEmpty());
  EXPECT_THAT(sentencesOf({"0mm", "0mm", "85.72mm", "54mm"}),
              ElementsAre("“Front Resin Area 1” is 0.1 mm outside the card on the right."));
  EXPECT_THAT(sentencesOf({"0mm", "0mm", "1in", "54.11mm"}),
              ElementsAre("“Front Resin Area 1” is 0.1 mm outside the card at the bottom."));
}

TEST_F(AreaWarnings, HalfADotIsToleratedWhereThatIsMore) {
  put(kFirst, {"0mm", "0mm", "85.9mm", "1in"});
  auto card = host::cardGeometry(job);
  EXPECT_EQ(areaWarnings(job, side, areas, card).size(), 1U);
  card.dotsPerInchAcross = 36;  // half a dot is 0.35 mm
  EXPECT_THAT(areaWarnings(job, side, areas, card), IsEmpty());
}

TEST_F(AreaWarnings, DotsAreTheOnesOfThatDirection) {
  auto card = host::cardGeometry(job);
  put(kFirst, {"0", "0", "1200px", "637"});
  EXPECT_EQ(areaWarnings(job, side, areas, card).size(), 1U);
  card.dotsPerInchAcross = 600;
  EXPECT_THAT(areaWarnings(job, side, areas, card), IsEmpty());
  put(kFirst, {"0", "0", "1in", "1200px"});
  EXPECT_EQ(areaWarnings(job, side, areas, card).size(), 1U);
}

TEST_F(AreaWarnings, TheCardIsTheMarkedOne) {
  put(kFirst, {"0mm", "0mm", "85.6mm", "54mm"});
  EXPECT_THAT(sentences(), IsEmpty());
  job.mark("PageSize", "CR79");
  EXPECT_THAT(sentences(), ElementsAre("“Front Resin Area 1” is outside the card: 1.7 mm on the "
                                       "right and 3 mm at the bottom."));
}

TEST_F(AreaWarnings, AmountsAreInInchesWhereTheLocaleMeasuresSo) {
  const ScopedLocale american(LC_MEASUREMENT, "en_US.UTF-8");
  EXPECT_THAT(sentencesOf({"3in", "0in", "0.5in", "1in"}),
              ElementsAre("“Front Resin Area 1” is 0.13 in outside the card on the right."));
  EXPECT_THAT(sentencesOf({"4in", "0in", "0.5in", "1in"}),
              ElementsAre("“Front Resin Area 1” is wholly outside the card, which is 3.37 × 2.125 "
                          "in."));
}

TEST_F(AreaWarnings, AnAreaToIncludeThatIsExcludedWhollyIsTold) {
  put(kFirst, {"10mm", "10mm", "10mm", "10mm"});
  put(kSecond, {"10mm", "10mm", "10mm", "11mm"});
  put(kExclude, {"10.05mm", "5mm", "2cm", "15mm"});
  const auto all = warnings();
  ASSERT_EQ(all.size(), 1U);
  EXPECT_EQ(all[0].key, kFirst);
  EXPECT_EQ(all[0].sentence,
            "“Front No-Resin Area 1” covers “Front Resin Area 1” wholly, so nothing is left of "
            "it.");
  EXPECT_EQ(all[0].columns, kAll);
}

TEST_F(AreaWarnings, WhatIsOffTheCardNeedsNoCover) {
  put(kFirst, {"70mm", "0mm", "30mm", "10mm"});
  put(kExclude, {"70mm", "0mm", "15.6mm", "10mm"});
  EXPECT_THAT(sentences(),
              ElementsAre("“Front Resin Area 1” is 14.4 mm outside the card on the right.",
                          "“Front No-Resin Area 1” covers “Front Resin Area 1” wholly, so nothing "
                          "is left of it."));
}

TEST_F(AreaWarnings, AnotherAreaToIncludeCoversNothing) {
  put(kFirst, {"10mm", "10mm", "10mm", "10mm"});
  put(kSecond, {"5mm", "5mm", "20mm", "20mm"});
  EXPECT_THAT(sentences(), IsEmpty());
}

TEST_F(AreaWarnings, AreasAreJudgedInTheirOrder) {
  put(kExclude, {"90mm", "5mm", "8mm", "8mm"});
  put(kFirst, {"1mm", "5mm", "8mm", ""});
  EXPECT_THAT(sentences(),
              ElementsAre("“Front Resin Area 1” has no height.",
                          "“Front No-Resin Area 1” is wholly outside the card, which is 85.6 × 54 "
                          "mm."));
}

TEST_F(AreaWarnings, WhatIsNoMeasurementIsNotJudged) {
  for (const AreaTexts& texts :
       {AreaTexts{"1,5cm", "", "", ""}, AreaTexts{"1in", "1in", "1inch", "1in"},
        AreaTexts{"9in", "9in", "1in", "-"}, AreaTexts{" ", "", "", ""}}) {
    EXPECT_THAT(sentencesOf(texts), IsEmpty()) << texts[0];
  }
}

TEST_F(AreaWarnings, AllSidesAreJudgedAsMarked) {
  job.mark("frontResinInclude1", "5in 0in 1in 1in");
  job.mark("backPO", "DefinedAreas");
  job.mark("CustombackPeelOff2", "0in 0in 1in 0px");
  job.mark("CustomfrontPeelOff1", "5in 5in 0in 0in");  // nothing to peel off there
  const auto all = areaWarnings(job);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].key, "frontResinInclude1");
  EXPECT_EQ(all[1].key, "CustombackPeelOff2");
  EXPECT_EQ(all[1].sentence, "The height of “Back Peel-Off Area 2” is zero.");
}

/// A printer of its own for what the sample has otherwise.
class OtherPrinter : public testing::Test {
 protected:
  static host::JobOptions jobOf(const std::string& ppd) {
    const test::TemporaryFolder folder;
    return host::JobOptions(host::openPPD(folder.write("card.ppd", ppd)));
  }

  static Sentences sentencesOf(const host::JobOptions& job) {
    Sentences all;
    for (const AreaWarning& each : areaWarnings(job)) all.push_back(each.sentence);
    return all;
  }

  ScopedLocale metric{LC_MEASUREMENT, "de_DE.UTF-8"};
  const std::vector<test::TestOption> options{
      test::testOption("frontPO", "Front Peel-Off", 13, "Choice12")};
  const std::string area = test::testAreaOption("CustomfrontPeelOff1");
};

TEST_F(OtherPrinter, MayCountFromTheBottom) {
  auto job = jobOf(test::testPPD(options, area + "*cardpanelsOrigin: BottomLeft\n"));
  job.mark("CustomfrontPeelOff1", "0in 0in 1in 3in");
  EXPECT_THAT(sentencesOf(job),
              ElementsAre("“CustomfrontPeelOff1” is 22.2 mm outside the card at the top."));
  job.mark("CustomfrontPeelOff1", "3in 0in 1in 3in");
  EXPECT_THAT(
      sentencesOf(job),
      ElementsAre("“CustomfrontPeelOff1” is outside the card: 15.9 mm on the right and 22.2 "
                  "mm at the top."));
}

TEST_F(OtherPrinter, MayTakeCustomSizes) {
  auto job = jobOf(test::testPPD(
      options, area + "*CustomPageSize True/Custom: \"pop\"\n"
                      "*ParamCustomPageSize Width: 1 points 36 300\n"
                      "*ParamCustomPageSize Height: 2 points 36 400\n*VariablePaperSize: True\n"));
  job.mark("CustomfrontPeelOff1", "0in 0in 2in 3in");
  ASSERT_TRUE(job.request("PageSize", "Custom.2x3.5in").granted);
  EXPECT_THAT(sentencesOf(job), IsEmpty());
  ASSERT_TRUE(job.request("PageSize", "Custom.50x80mm").granted);
  EXPECT_THAT(sentencesOf(job),
              ElementsAre("“CustomfrontPeelOff1” is 0.8 mm outside the card on the right."));
}

TEST_F(OtherPrinter, MayNotTellHowLargeItsCardsAre) {
  auto job = jobOf(
      "*PPD-Adobe: \"4.3\"\n*OpenUI *frontPO/Front Peel-Off: PickOne\n*DefaultfrontPO: C12\n" +
      [] {
        std::string choices;
        for (int i = 0; i < 13; ++i) choices += "*frontPO C" + std::to_string(i) + "/C: \"\"\n";
        return choices;
      }() +
      "*CloseUI: *frontPO\n" + area + test::testAreaOption("CustomfrontNonPeelOff1"));
  job.mark("CustomfrontPeelOff1", "9in 9in 9in 9in");
  EXPECT_THAT(sentencesOf(job), IsEmpty());
  job.mark("CustomfrontNonPeelOff1", "8in 8in 10in 10in");
  EXPECT_THAT(
      sentencesOf(job),
      ElementsAre("“CustomfrontNonPeelOff1” covers “CustomfrontPeelOff1” wholly, so nothing "
                  "is left of it."));
}

TEST_F(OtherPrinter, WithoutAreaOptionsIsNotToldToSetThem) {
  EXPECT_THAT(sentencesOf(jobOf(test::testPPD(options))), IsEmpty());
}

TEST_F(OtherPrinter, TellsTheDefaultChoiceWhereNothingIsMarked) {
  auto job = jobOf(test::testPPD(options, area));
  job.unmark("frontPO");
  EXPECT_THAT(sentencesOf(job),
              ElementsAre("“Front Peel-Off” is “Choice 12”, but there is no area."));
}

}  // namespace
}  // namespace cardpanels::dialog
