#include <gtest/gtest.h>

#include "dialog/Measurement.h"

namespace cardpanels::dialog {
namespace {

TEST(Measurement, TakesDecimalNumbers) {
  for (const char* text : {"1", "12", "0.5", ".5", "1.", "00012345678901234567"}) {
    EXPECT_TRUE(isMeasurement(text)) << text;
  }
}

TEST(Measurement, TakesUnitsInAnyCaseAndTheInchMark) {
  for (const char* text : {"1in", "2cm", "3mm", "4px", "1.5IN", "2Cm", "3mM", "4PX", "1\""}) {
    EXPECT_TRUE(isMeasurement(text)) << text;
  }
}

TEST(Measurement, TakesSpacesAroundNumberAndUnit) {
  for (const char* text : {" 1in", "1 in", "1in ", "  1  \"  "}) {
    EXPECT_TRUE(isMeasurement(text)) << text;
  }
}

TEST(Measurement, TakesNothingElse) {
  for (const char* text : {"", " ", ".", "in", "1.2.3", "1,5", "-1", "+1", "1inch", "1m", "1 2",
                           "1in2", "abc", "1\t", "1i n", "\xC2\xBD"}) {
    EXPECT_FALSE(isMeasurement(text)) << text;
  }
}

TEST(Measurement, CountsInPoints) {
  EXPECT_DOUBLE_EQ(pointsIn("1in", 300).value(), 72);
  EXPECT_DOUBLE_EQ(pointsIn(".5\"", 300).value(), 36);
  EXPECT_DOUBLE_EQ(pointsIn("2.54CM", 300).value(), 72);
  EXPECT_DOUBLE_EQ(pointsIn(" 25.4 mm ", 300).value(), 72);
  EXPECT_DOUBLE_EQ(pointsIn("1.", 72).value(), 1);
  EXPECT_DOUBLE_EQ(pointsIn("0px", 300).value(), 0);
}

TEST(Measurement, CountsDotsOfThePrinterWithoutAUnit) {
  for (const char* text : {"300", "300px", "300 Px"}) {
    EXPECT_DOUBLE_EQ(pointsIn(text, 300).value(), 72) << text;
    EXPECT_DOUBLE_EQ(pointsIn(text, 600).value(), 36) << text;
  }
}

TEST(Measurement, OfWhatIsNoneIsNothing) {
  for (const char* text : {"", " ", "1,5cm", "-1in", "1m", ".", "mm"}) {
    EXPECT_EQ(pointsIn(text, 300), std::nullopt) << text;
  }
  EXPECT_EQ(pointsIn(std::string(400, '9'), 300), std::nullopt);
  EXPECT_EQ(pointsIn(std::string(308, '9') + "in", 300), std::nullopt);
}

TEST(Measurement, TakesTheDecimalCommaForAPoint) {
  EXPECT_EQ(withDecimalPoint("1,5cm"), "1.5cm");
  EXPECT_EQ(withDecimalPoint(",5 in"), ".5 in");
  EXPECT_EQ(withDecimalPoint("12mm"), "12mm");
  EXPECT_EQ(withDecimalPoint(""), "");
  EXPECT_TRUE(isMeasurement(withDecimalPoint("1,5cm")));
  EXPECT_EQ(withDecimalPoint("1,000,5"), "1.000.5");
  EXPECT_FALSE(isMeasurement(withDecimalPoint("1,000,5")));
}

}  // namespace
}  // namespace cardpanels::dialog
