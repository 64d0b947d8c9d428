#include <gtest/gtest.h>

#include "dialog/PictureLayout.h"

namespace cardpanels::dialog {
namespace {

constexpr host::CardGeometry kCard{.width = 200, .height = 100};

/// With lines of 10 pixels the rulers and the size take 31 pixels of the width, 37 of the height.
constexpr double kLine = 10;
constexpr double kAcross = 31;
constexpr double kDown = 37;

TEST(PictureLayout, FitsTheCardBetweenRulersAndSize) {
  const PictureLayout layout(kCard, 400 + kAcross, 200 + kDown, kLine);
  EXPECT_EQ(layout.scale(), 2);
  EXPECT_EQ(layout.line(), kLine);
  EXPECT_EQ(layout.width(), 400 + kAcross);
  EXPECT_EQ(layout.height(), 200 + kDown);
  EXPECT_EQ(layout.card(), (PictureBox{22, 17, 400, 200}));
}

TEST(PictureLayout, CentersTheCardInTheLongerLength) {
  EXPECT_EQ(PictureLayout(kCard, 500 + kAcross, 200 + kDown, kLine).card(),
            (PictureBox{22 + 50, 17, 400, 200}));
  EXPECT_EQ(PictureLayout(kCard, 400 + kAcross, 300 + kDown, kLine).card(),
            (PictureBox{22, 17 + 50, 400, 200}));
}

TEST(PictureLayout, KeepsACardOfAPixelWhereThereIsNoRoom) {
  const PictureLayout layout(kCard, 10, 10, kLine);
  EXPECT_EQ(layout.scale(), 1 / kCard.width);
  EXPECT_EQ(layout.card().width, 1);
}

TEST(PictureLayout, LaysNothingOutWithoutASize) {
  const PictureLayout layout(host::CardGeometry{}, 400, 200, kLine);
  EXPECT_EQ(layout.card(), (PictureBox{0, 0, 0, 0}));
  EXPECT_EQ(layout.scale(), 1);
  EXPECT_EQ(PictureLayout::heightFor({}, 400, kLine), 0);
  EXPECT_EQ(PictureLayout::widthFor({}, 200, kLine), 0);
}

TEST(PictureLayout, AsksForTheLengthThatTheCardFills) {
  EXPECT_EQ(PictureLayout::heightFor(kCard, 400 + kAcross, kLine), 200 + kDown);
  EXPECT_EQ(PictureLayout::widthFor(kCard, 200 + kDown, kLine), 400 + kAcross);
  EXPECT_EQ(PictureLayout::heightFor(kCard, 0, kLine), 0.5 + kDown) << "a pixel wide";
  EXPECT_EQ(PictureLayout::widthFor(kCard, 0, kLine), 2 + kAcross) << "a pixel high";
}

TEST(PictureLayout, AsksForLinesOfText) {
  EXPECT_EQ(PictureLayout::leastWidth(10), 140);
  EXPECT_EQ(PictureLayout::leastWidth(10.01), 141);
  EXPECT_EQ(PictureLayout::naturalWidth(10), 200);
  EXPECT_EQ(PictureLayout::heightAskedFor(kCard, 171, kLine), 70 + 37);
  EXPECT_EQ(PictureLayout::heightAskedFor(kCard, 172, kLine), 71 + 37);
  EXPECT_EQ(PictureLayout::heightAskedFor(kCard, 900, kLine),
            PictureLayout::heightAskedFor(kCard, 220, kLine));
  const host::CardGeometry tall{.width = 100, .height = 400};
  EXPECT_EQ(PictureLayout::heightAskedFor(tall, 200, kLine), 220) << "at most as high as wide";
}

TEST(PictureLayout, KnowsWhatIsUnderAPlace) {
  const PictureLayout layout(kCard, 400 + kAcross, 200 + kDown, kLine);
  EXPECT_EQ(layout.onCard({22, 17}), (PicturePoint{0, 0}));
  EXPECT_EQ(layout.onCard({32, 37}), (PicturePoint{5, 10}));
  EXPECT_EQ(layout.onCard({20, 15}), (PicturePoint{-1, -1}));
  EXPECT_EQ(layout.boxOf({.x = 5, .y = 10, .width = 20, .height = 30}),
            (PictureBox{32, 37, 40, 60}));
}

TEST(PictureLayout, CountsTheEdgesToTheCard) {
  const PictureLayout layout(kCard, 400 + kAcross, 200 + kDown, kLine);
  for (const PicturePoint on : {PicturePoint{22, 17}, {422, 217}, {22, 217}, {422, 17}}) {
    EXPECT_TRUE(layout.isOnCard(on)) << on.x << " " << on.y;
  }
  for (const PicturePoint off : {PicturePoint{21, 100}, {423, 100}, {200, 16}, {200, 218}}) {
    EXPECT_FALSE(layout.isOnCard(off)) << off.x << " " << off.y;
  }
}

TEST(PictureLayout, TurnsTheCardWhereThePrinterCountsFromTheBottom) {
  host::CardGeometry card = kCard;
  card.countsFromBottom = true;
  const PictureLayout layout(card, 400 + kAcross, 200 + kDown, kLine);
  EXPECT_TRUE(layout.countsFromBottom());
  EXPECT_EQ(layout.onCard({22, 217}), (PicturePoint{0, 0}));
  EXPECT_EQ(layout.boxOf({.x = 5, .y = 10, .width = 20, .height = 30}),
            (PictureBox{32, 137, 40, 60}));
}

}  // namespace
}  // namespace cardpanels::dialog
