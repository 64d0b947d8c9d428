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

}  // namespace
}  // namespace cardpanels::dialog
