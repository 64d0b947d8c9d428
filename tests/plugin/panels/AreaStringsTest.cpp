#include <gtest/gtest.h>

#include <clocale>
#include <cstring>
#include <string>
#include <vector>

#include "plugin/panels/AreaStrings.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels {
namespace {

using Parts = std::vector<std::string>;

const Parts kNothing{"", "", "", ""};

class AreaStrings : public testing::Test {
 protected:
  static Parts parsed(const char* area) {
    const char* parts[4] = {};
    parseArea(area, parts[0], parts[1], parts[2], parts[3]);
    return {parts[0], parts[1], parts[2], parts[3]};
  }

  test::RecordedLog log;
};

TEST_F(AreaStrings, ParsesAnAreaWithTheCustomPrefix) {
  EXPECT_EQ(parsed("Custom.0.5in 0.25in 2in 1in"), (Parts{"0.5in", "0.25in", "2in", "1in"}));
}

TEST_F(AreaStrings, ParsesTheCustomPrefixInAnyCase) {
  EXPECT_EQ(parsed("custom.1cm 2cm 3cm 4cm"), (Parts{"1cm", "2cm", "3cm", "4cm"}));
  EXPECT_EQ(parsed("cUSTOm.1cm 2cm 3cm 4cm"), (Parts{"1cm", "2cm", "3cm", "4cm"}));
}

TEST_F(AreaStrings, ANumberWithoutUnitGetsPxBeforeAnotherNumberAndNothingAtTheEnd) {
  EXPECT_EQ(parsed("1 2 3 4"), (Parts{"1px", "2px", "3px", "4"}));
  EXPECT_EQ(parsed("1 2 3 4  "), (Parts{"1px", "2px", "3px", "4"}));
}

TEST_F(AreaStrings, NeedsNoSeparatorAfterAUnit) {
  EXPECT_EQ(parsed("1in2in3in4in"), (Parts{"1in", "2in", "3in", "4in"}));
}

TEST_F(AreaStrings, DropsSignsAndKeepsTheCaseOfUnits) {
  EXPECT_EQ(parsed(" +1.5IN -2mm 3mm 4px "), (Parts{"1.5IN", "2mm", "3mm", "4px"}));
}

TEST_F(AreaStrings, ASecondPointStartsTheNextNumber) {
  EXPECT_EQ(parsed("1.2.3 4 5"), (Parts{"1.2px", ".3px", "4px", "5"}));
}

TEST_F(AreaStrings, ParsesTheNoAreaValueLikeAnyOther) {
  EXPECT_EQ(parsed("0in 0in 0in 0in"), (Parts{"0in", "0in", "0in", "0in"}));
}

TEST_F(AreaStrings, ThreeMeasurementsAreNoArea) { EXPECT_EQ(parsed("1in 2in 3in"), kNothing); }

TEST_F(AreaStrings, FiveMeasurementsAreNoArea) {
  EXPECT_EQ(parsed("1in 2in 3in 4in 5in"), kNothing);
  EXPECT_EQ(parsed("1 2 3 4 5"), kNothing);
}

TEST_F(AreaStrings, AnUnknownUnitIsNoArea) {
  EXPECT_EQ(parsed("1inch 2in 3in 4in"), kNothing);
  EXPECT_EQ(parsed("1in 2in 3in 4pt"), kNothing);
  EXPECT_EQ(parsed("1in 2in 3in 4i"), kNothing);
}

TEST_F(AreaStrings, ACommaIsNoArea) { EXPECT_EQ(parsed("1in, 2in, 3in, 4in"), kNothing); }

TEST_F(AreaStrings, ATabIsNoArea) {
  EXPECT_EQ(parsed("1in\t2in 3in 4in"), kNothing);
  EXPECT_EQ(parsed("\t1in 2in 3in 4in"), kNothing);
}

TEST_F(AreaStrings, NothingOrOnlyAPrefixIsNoArea) {
  for (const char* area : {"Custom.", "CUSTOM.", "custom.", "", " ", "Custom. "}) {
    EXPECT_EQ(parsed(area), kNothing) << area;
  }
  EXPECT_EQ(parsed(nullptr), kNothing);
}

TEST_F(AreaStrings, ThePrefixIsStrippedOnce) {
  EXPECT_EQ(parsed("Custom.Custom.1in 1in 1in 1in"), kNothing);
}

TEST_F(AreaStrings, AMinusIsDroppedWhereverItStands) {
  EXPECT_EQ(parsed("-1in -2in -3in -4in"), (Parts{"1in", "2in", "3in", "4in"}));
  EXPECT_EQ(parsed("1-2+3-4"), (Parts{"1px", "2px", "3px", "4"}));
}

TEST_F(AreaStrings, KeepsTheInchMarkAsUnit) {
  EXPECT_EQ(parsed("1\" 2\"3\" .5\""), (Parts{"1\"", "2\"", "3\"", ".5\""}));
}

TEST_F(AreaStrings, SpacesMayStandBeforeAUnitAndAreNotKept) {
  EXPECT_EQ(parsed("1 in 2  mm 3 \" 4 px"), (Parts{"1in", "2mm", "3\"", "4px"}));
}

TEST_F(AreaStrings, AcceptsTrailingSpaces) {
  EXPECT_EQ(parsed("1in 2in 3in 4in   "), (Parts{"1in", "2in", "3in", "4in"}));
}

TEST_F(AreaStrings, AMeasurementThatFillsItsSlotIsKept) {
  const std::string digits18(18, '1');
  const std::string digits20(20, '2');
  EXPECT_EQ(parsed((digits18 + "in 2in 3in " + digits20).c_str()),
            (Parts{digits18 + "in", "2in", "3in", digits20}));
  EXPECT_EQ(parsed((digits18 + " 2in 3in 4in").c_str()),
            (Parts{digits18 + "px", "2in", "3in", "4in"}));
}

TEST_F(AreaStrings, AMeasurementThatDoesNotFitItsSlotIsNoArea) {
  const std::string digits19(19, '1');
  const std::string digits21(21, '2');
  EXPECT_EQ(parsed((digits19 + "in 2in 3in 4in").c_str()), kNothing);
  EXPECT_EQ(parsed((digits19 + " 2in 3in 4in").c_str()), kNothing);
  EXPECT_EQ(parsed(("1in 2in 3in " + digits21).c_str()), kNothing);
  EXPECT_EQ(parsed(("1in 2in 3in " + std::string(100000, '3')).c_str()), kNothing);
}

TEST_F(AreaStrings, AFailedParseLeavesNothingOfTheOneBefore) {
  parsed("1in 2in 3in 4in");
  EXPECT_EQ(parsed("5in 6in"), kNothing);
}

TEST_F(AreaStrings, ThePartsLieInSlotsOf21Bytes) {
  const char* x = nullptr;
  const char* y = nullptr;
  const char* width = nullptr;
  const char* height = nullptr;
  parseArea(nullptr, x, y, width, height);
  EXPECT_EQ(y - x, 21);
  EXPECT_EQ(width - x, 42);
  EXPECT_EQ(height - x, 63);
}

TEST_F(AreaStrings, NeitherDependsOnTheLocale) {
  const std::string before = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"tr_TR.UTF-8", "de_DE.UTF-8", "ja_JP.UTF-8"}) {
    if (std::setlocale(LC_ALL, locale) == nullptr) continue;
    EXPECT_EQ(parsed("CUSTOM.1.5IN 2In 3iN 4in"), (Parts{"1.5IN", "2In", "3iN", "4in"})) << locale;
    EXPECT_EQ(parsed("1,5in 2in 3in 4in"), kNothing) << locale;
  }
  std::setlocale(LC_ALL, before.c_str());
}

TEST_F(AreaStrings, TracesParsing) {
  log.lines();
  parsed("Custom.1in 2 3in 4");
  EXPECT_EQ(log.lines(), (Parts{"BEGIN parseArea:", "END parseArea: (1in)(2px)(3in)(4)"}));
  parsed("1in");
  EXPECT_EQ(log.lines(), (Parts{"BEGIN parseArea:", "END parseArea: ()()()()"}));
}

TEST_F(AreaStrings, JoinsFourMeasurements) {
  EXPECT_STREQ(formatArea("1in", "2in", "3in", "4in"), "1in 2in 3in 4in");
}

TEST_F(AreaStrings, AMissingMeasurementBecomes0px) {
  EXPECT_STREQ(formatArea("1in", "", "2in", nullptr), "1in 0px 2in 0px");
}

TEST_F(AreaStrings, FourMissingMeasurementsAreTheEmptyText) {
  EXPECT_STREQ(formatArea("", nullptr, "", nullptr), "");
  EXPECT_STREQ(formatArea(nullptr, nullptr, nullptr, nullptr), "");
  EXPECT_STREQ(formatArea("", "", "", ""), "");
}

TEST_F(AreaStrings, JoinsWhatIsNoMeasurementToo) {
  EXPECT_STREQ(formatArea("abc", "1", "2", "3"), "abc 1 2 3");
}

TEST_F(AreaStrings, PartsOf20CharactersFit) {
  const std::string part(20, '9');
  const std::string joined = part + " " + part + " " + part + " " + part;
  EXPECT_EQ(formatArea(part.c_str(), part.c_str(), part.c_str(), part.c_str()), joined);
}

TEST_F(AreaStrings, APartOf21CharactersIsRefused) {
  const std::string part(21, '9');
  EXPECT_STREQ(formatArea("1in", part.c_str(), "3in", "4in"), "");
  EXPECT_STREQ(formatArea("", "", "", std::string(100000, '1').c_str()), "");
  EXPECT_STREQ(formatArea("1in", "2in", "3in", "4in"), "1in 2in 3in 4in");
}

TEST_F(AreaStrings, ASecondResultOverwritesTheFirst) {
  const char* first = formatArea("1in", "1in", "1in", "1in");
  const char* second = formatArea("2in", "2in", "2in", "2in");
  EXPECT_EQ(first, second);
  EXPECT_STREQ(first, "2in 2in 2in 2in");
}

TEST_F(AreaStrings, TracesJoining) {
  log.lines();
  formatArea("1in", "", nullptr, "%s");
  EXPECT_EQ(log.lines(),
            (Parts{"BEGIN formatArea: (1in)()((null))(%s)", "END formatArea: (1in 0px 0px %s)"}));
  const std::string tooLong(21, '9');
  formatArea(tooLong.c_str(), "1", "1", "1");
  EXPECT_EQ(log.lines(),
            (Parts{"BEGIN formatArea: (" + tooLong + ")(1)(1)(1)", "END formatArea: ()"}));
}

TEST_F(AreaStrings, WhatWasParsedParsesAgainWhenJoined) {
  for (const char* area : {"1 2 3 4", "Custom.-.5IN 1\" 2 mm 3.", "1.2.3.4.5"}) {
    const Parts parts = parsed(area);
    EXPECT_NE(parts, kNothing) << area;
    const std::string joined =
        formatArea(parts[0].c_str(), parts[1].c_str(), parts[2].c_str(), parts[3].c_str());
    EXPECT_EQ(parsed(joined.c_str()), parts) << area;
  }
}

}  // namespace
}  // namespace cardpanels
