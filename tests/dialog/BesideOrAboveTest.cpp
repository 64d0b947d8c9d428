#include <gtest/gtest.h>

#include "dialog/BesideOrAbove.h"

namespace cardpanels::dialog {
namespace {

/// Fields that are as high however wide they are.
PanelPart fields() {
  return {200, 300, [](int /*width*/) { return 90; }};
}

/// A picture half as high as wide.
PanelPart picture() {
  return {100, 160, [](int width) { return width / 2; }};
}

TEST(BesideOrAbove, BothStandBesideEachOtherInTheirNaturalWidth) {
  const BesideOrAbove both(fields(), picture());
  EXPECT_EQ(both.naturalWidth(), 472);
  EXPECT_EQ(both.heightFor(472), 90);
  const auto places = both.placesIn(472, 90, false);
  EXPECT_EQ(places.first, (PartPlace{0, 0, 300, 90}));
  EXPECT_EQ(places.second, (PartPlace{312, 0, 160, 90}));
}

TEST(BesideOrAbove, WhatIsLeftIsTheFirstOnes) {
  const auto places = BesideOrAbove(fields(), picture()).placesIn(500, 90, false);
  EXPECT_EQ(places.first, (PartPlace{0, 0, 328, 90}));
  EXPECT_EQ(places.second, (PartPlace{340, 0, 160, 90}));
}

TEST(BesideOrAbove, TheSecondGivesWayDownToItsLeast) {
  const BesideOrAbove both(fields(), picture());
  const auto places = both.placesIn(412, 90, false);
  EXPECT_EQ(places.first, (PartPlace{0, 0, 300, 90}));
  EXPECT_EQ(places.second, (PartPlace{312, 0, 100, 90}));
}

TEST(BesideOrAbove, TheSecondStandsAboveWhereThatIsTooWide) {
  const BesideOrAbove both(fields(), picture());
  EXPECT_EQ(both.leastWidth(), 200);
  EXPECT_EQ(both.heightFor(411), 205 + 12 + 90);
  const auto places = both.placesIn(411, 320, false);
  EXPECT_EQ(places.second, (PartPlace{0, 0, 411, 205}));
  EXPECT_EQ(places.first, (PartPlace{0, 217, 411, 103}));
}

TEST(BesideOrAbove, FromRightToLeftTheSecondStandsOnTheLeft) {
  const auto places = BesideOrAbove(fields(), picture()).placesIn(472, 90, true);
  EXPECT_EQ(places.second, (PartPlace{0, 0, 160, 90}));
  EXPECT_EQ(places.first, (PartPlace{172, 0, 300, 90}));
}

TEST(BesideOrAbove, TheSecondAloneHasAllTheRoom) {
  const BesideOrAbove alone(std::nullopt, picture());
  EXPECT_EQ(alone.leastWidth(), 100);
  EXPECT_EQ(alone.naturalWidth(), 160);
  EXPECT_EQ(alone.heightFor(300), 150);
  const auto places = alone.placesIn(300, 150, false);
  EXPECT_EQ(places.first, PartPlace());
  EXPECT_EQ(places.second, (PartPlace{0, 0, 300, 150}));
}

TEST(BesideOrAbove, NobodyIsAskedForLessThanTheLeast) {
  const PanelPart narrow{100, 160, [](int width) {
                           EXPECT_GE(width, 100);
                           return 10;
                         }};
  EXPECT_EQ(BesideOrAbove(std::nullopt, narrow).heightFor(20), 10);
  EXPECT_EQ(BesideOrAbove(fields(), narrow).heightFor(20), 10 + 12 + 90);
}

}  // namespace
}  // namespace cardpanels::dialog
