#include <gtest/gtest.h>

#include "dialog/CardAreas.h"
#include "dialog/CardText.h"
#include "host/CardGeometry.h"
#include "host/JobOptions.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/ScopedLocale.h"

namespace cardpanels::dialog {
namespace {

using test::ScopedLocale;

constexpr double kMillimeter = 72 / 25.4;

class CardText : public testing::Test {
 protected:
  ScopedLocale metric{LC_MEASUREMENT, "de_DE.UTF-8"};
  host::JobOptions job{host::openPPD(test::duplexPPD())};
  host::CardGeometry card = host::cardGeometry(job);
};

TEST_F(CardText, LengthsAreInTenthsOfAMillimeter) {
  EXPECT_EQ(lengthText(3 * kMillimeter), "3 mm");
  EXPECT_EQ(lengthText(2.96 * kMillimeter), "3 mm");
  EXPECT_EQ(lengthText(2.94 * kMillimeter), "2.9 mm");
  EXPECT_EQ(lengthText(100 * kMillimeter), "100 mm");
  EXPECT_EQ(lengthText(0), "0 mm");
}

TEST_F(CardText, LengthsAreInInchesWhereTheLocaleMeasuresSo) {
  const ScopedLocale american(LC_MEASUREMENT, "en_US.UTF-8");
  EXPECT_EQ(lengthText(72), "1 in");
  EXPECT_EQ(lengthText(3 * kMillimeter), "0.118 in");
  EXPECT_EQ(cardSizeText(card), "3.37 × 2.125 in");
  EXPECT_EQ(unitHelp(card),
            "A number without a unit is in px; one px is 0.00333 in on this printer.");
}

TEST_F(CardText, NumbersHaveTheLocalesDecimalPoint) {
  const ScopedLocale german(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_EQ(lengthText(2.9 * kMillimeter), "2,9 mm");
  EXPECT_EQ(cardSizeText(card), "85,6 × 54 mm");
  const ScopedLocale pashto(LC_NUMERIC, "ps_AF");
  EXPECT_EQ(lengthText(2.9 * kMillimeter), "2٫9 mm");
}

TEST_F(CardText, TheSizeIsTheMarkedOne) {
  EXPECT_EQ(cardSizeText(card), "85.6 × 54 mm");
  job.mark("PageSize", "CR79");
  EXPECT_EQ(cardSizeText(host::cardGeometry(job)), "83.9 × 51 mm");
  EXPECT_EQ(cardSizeText({}), "");
}

TEST_F(CardText, AHugeLengthIsWrittenInFull) {
  EXPECT_EQ(lengthText(1e300 * kMillimeter).size(), std::string("1").size() + 300 + 3);
}

TEST_F(CardText, TellsHowLargeAPixelIs) {
  EXPECT_EQ(unitHelp(card),
            "A number without a unit is in px; one px is 0.085 mm on this printer.");
  card.dotsPerInchDown = 600;
  EXPECT_EQ(unitHelp(card),
            "A number without a unit is in px; one px is 0.085 mm wide and 0.042 mm high on this "
            "printer.");
}

TEST_F(CardText, DoesNotGuessHowLargeAPixelIs) {
  card.hasResolution = false;
  EXPECT_EQ(unitHelp(card), "A number without a unit is in px, the dots of the printer.");
}

TEST_F(CardText, AnAreaIsToldAsTyped) {
  CardArea area{"frontResinInclude1", true, 1, {"12mm", "5 MM", ".25in", "8"}};
  EXPECT_EQ(areaText(area), "Includes .25in × 8 at X 12mm, Y 5 MM");
  area.include = false;
  area.texts[0] = "";
  EXPECT_EQ(areaText(area), "Excludes .25in × 8 at X 0px, Y 5 MM");
  EXPECT_EQ(areaText({"frontResinInclude1"}), "");
}

}  // namespace
}  // namespace cardpanels::dialog
