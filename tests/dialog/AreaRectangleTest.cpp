#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "dialog/AreaDrag.h"
#include "dialog/AreaRectangle.h"
#include "dialog/MeasurementField.h"
#include "host/CardGeometry.h"
#include "tests/support/ScopedLocale.h"

namespace cardpanels::dialog {
namespace {

using testing::Each;
using testing::Le;
using testing::Optional;
using testing::SizeIs;

constexpr double kOneMillimeter = 72 / 25.4;
constexpr int kRounds = 2000;

AreaRectangle millimeters(double x, double y, double width, double height) {
  return {x * kOneMillimeter, y * kOneMillimeter, width * kOneMillimeter, height * kOneMillimeter};
}

/// A CR80 card of 300 by 600 dpi.
class AreaRectangles : public testing::Test {
 protected:
  double number(double most) { return std::uniform_real_distribution<double>(0, most)(random_); }
  std::size_t below(std::size_t end) {
    return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
  }

  /// As somebody may type it.
  std::string measurement() {
    static const std::vector<std::string> units{"in", "mm", "cm", "px", "\"", "", " MM", "IN "};
    std::string text = std::to_string(number(90));
    return text.substr(0, text.size() - below(6)) + units[below(units.size())];
  }

  AreaTexts texts() {
    AreaTexts all{measurement(), measurement(), measurement(), measurement()};
    if (below(4) == 0) all[below(4)] = "";
    return all;
  }

  AreaRectangle rectangle() { return {number(300), number(200), 1 + number(300), 1 + number(200)}; }

  test::ScopedLocale metric{LC_MEASUREMENT, "de_DE.UTF-8"};
  host::CardGeometry card{.width = 85.6 * kOneMillimeter,
                          .height = 54 * kOneMillimeter,
                          .dotsPerInchAcross = 300,
                          .dotsPerInchDown = 600};

 private:
  std::mt19937 random_{1};
};

TEST_F(AreaRectangles, AreWhereTheMeasurementsSay) {
  EXPECT_EQ(rectangleOf({"1in", "", "300", "600px"}, card), (AreaRectangle{72, 0, 72, 72}));
  EXPECT_EQ(rectangleOf({}, card), std::nullopt);
  EXPECT_EQ(rectangleOf({"1in", "a", "1in", "1in"}, card), std::nullopt);
}

TEST_F(AreaRectangles, ATextThatSaysTheSameStaysAsItWasTyped) {
  for (int i = 0; i < kRounds; ++i) {
    const AreaTexts typed = texts();
    const auto place = rectangleOf(typed, card);
    ASSERT_TRUE(place);
    EXPECT_THAT(textsOf(*place, typed, card), Optional(typed));
  }
}

TEST_F(AreaRectangles, WhatIsWrittenIsWrittenTheSameAgain) {
  for (int i = 0; i < kRounds; ++i) {
    const auto written = textsOf(rectangle(), texts(), card);
    ASSERT_TRUE(written);
    EXPECT_THAT(*written, Each(SizeIs(Le(std::size_t{MeasurementField::kMaximumLength}))));
    const auto place = rectangleOf(*written, card);
    ASSERT_TRUE(place);
    // Nothing is left of the texts but their units.
    AreaTexts others = *written;
    for (std::string& each : others) each.insert(0, "9");
    EXPECT_THAT(textsOf(*place, others, card), Optional(*written));
  }
}

TEST_F(AreaRectangles, ADragThereAndBackLeavesTheTexts) {
  for (int i = 0; i < kRounds; ++i) {
    const AreaTexts typed = texts();
    const auto place = rectangleOf(typed, card);
    ASSERT_TRUE(place);
    const Grip grip{.left = below(2) == 0, .start = below(2) == 0, .end = below(3) == 0};
    const PicturePoint back{number(0.4 * kOneMillimeter) - 0.2 * kOneMillimeter,
                            number(0.4 * kOneMillimeter) - 0.2 * kOneMillimeter};
    EXPECT_THAT(textsOf(dragged(*place, grip, back, card), typed, card), Optional(typed));
  }
}

TEST_F(AreaRectangles, AreWrittenInTheUnitOfTheirRowWithTwoDecimals) {
  const AreaRectangle place = millimeters(12.5, 5, 25.128, 8);
  EXPECT_THAT(textsOf(place, {}, card), Optional(AreaTexts{"12.5mm", "5mm", "25.13mm", "8mm"}));
  EXPECT_THAT(textsOf(place, {"1cm", "", "", ""}, card),
              Optional(AreaTexts{"1.25cm", "0.5cm", "2.51cm", "0.8cm"}));
  EXPECT_THAT(textsOf(place, {"", "1", "", "1\""}, card),
              Optional(AreaTexts{"147.64", "118.11", "296.79", "0.31\""}));
  const test::ScopedLocale inches(LC_MEASUREMENT, "en_US.UTF-8");
  EXPECT_THAT(textsOf(place, {}, card), Optional(AreaTexts{"0.49in", "0.2in", "0.99in", "0.31in"}));
}

TEST_F(AreaRectangles, HaveAPointInEveryLanguage) {
  const test::ScopedLocale comma(LC_NUMERIC, "de_DE.UTF-8");
  EXPECT_EQ(textsOf(millimeters(1.5, 1, 1, 1), {}, card)->at(0), "1.5mm");
}

TEST_F(AreaRectangles, WhatDoesNotFitIntoAFieldIsNotWritten) {
  EXPECT_EQ(textsOf({1e20, 0, 10, 10}, {}, card), std::nullopt);
}

TEST_F(AreaRectangles, SnapToHalfMillimetersAndTheEdgesOfTheCard) {
  const auto moved = dragged(millimeters(1, 1, 10, 10), {}, {2.3 * kOneMillimeter, 0}, card);
  EXPECT_NEAR(moved.x, 3.5 * kOneMillimeter, 1e-9);
  EXPECT_EQ(moved.y, kOneMillimeter);
  const auto wide =
      dragged(millimeters(1, 1, 10, 10), {.right = true}, {74.5 * kOneMillimeter, 0}, card);
  EXPECT_NEAR(wide.right(), card.width, 1e-9);
  EXPECT_EQ(wide.x, kOneMillimeter);
}

TEST_F(AreaRectangles, KeepSomeSizeAndSomeOfThemselvesOnTheCard) {
  for (int i = 0; i < kRounds; ++i) {
    const PicturePoint by{number(600) - 300, number(600) - 300};
    const Grip grip{.left = below(2) == 0, .start = below(2) == 0};
    const auto area = dragged(millimeters(10, 10, 20, 20), grip, by, card);
    EXPECT_GE(area.x, 0);
    EXPECT_GE(area.y, 0);
    EXPECT_LT(area.x, card.width);
    EXPECT_LT(area.y, card.height);
    EXPECT_GT(area.width, kOneMillimeter / 4);
    EXPECT_GT(area.height, kOneMillimeter / 4);
    const auto made = drawn({by.x, by.y}, {by.x + 10, by.y - 10}, card);
    EXPECT_FALSE(made.isNothing());
    EXPECT_GE(made.x, 0);
  }
}

}  // namespace
}  // namespace cardpanels::dialog
