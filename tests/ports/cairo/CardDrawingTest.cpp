#include <cairo.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <memory>
#include <ostream>

#include "ports/cairo/CardDrawing.h"
#include "tests/support/ScopedLocale.h"

namespace cardpanels::cairo {
namespace {

using dialog::CardScene;
using dialog::PictureBox;
using dialog::PictureLayout;
using dialog::PicturePoint;
using Pixel = std::uint32_t;  // alpha, red, green, blue

constexpr int kWidth = 600;
constexpr int kHeight = 400;
constexpr double kLine = 16;
constexpr Pixel kNothing = 0;
constexpr Pixel kWhite = 0xFFFFFFFF;
constexpr Pixel kBlack = 0xFF000000;
constexpr Pixel kRed = 0xFFFF0000;
constexpr Pixel kGreen = 0xFF00FF00;
constexpr Pixel kBlue = 0xFF0000FF;

CardScene blankCard() {
  CardScene scene;
  scene.card.width = 240;
  scene.card.height = 150;
  scene.isShown = true;
  return scene;
}

CardStyle plainStyle() {
  CardStyle style;
  style.colours = {
      .card = {1, 1, 1}, .ink = {}, .onCard = {}, .area = {0, 0, 1}, .error = {1, 0, 0}};
  style.fontFamily = "DejaVu Sans";
  style.fontSize = 12;
  return style;
}

using Surface = std::shared_ptr<cairo_surface_t>;

Surface surface(int width, int height) {
  return {cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height), cairo_surface_destroy};
}

/// A page whose left half is red and whose right half is green.
Surface page(int width, int height, bool isTurned = false) {
  Surface page = surface(width, height);
  const std::shared_ptr<cairo_t> cr(cairo_create(page.get()), cairo_destroy);
  cairo_set_source_rgb(cr.get(), isTurned ? 0 : 1, isTurned ? 1 : 0, 0);
  cairo_paint(cr.get());
  cairo_set_source_rgb(cr.get(), isTurned ? 1 : 0, isTurned ? 0 : 1, 0);
  cairo_rectangle(cr.get(), width / 2.0, 0, width / 2.0, height);
  cairo_fill(cr.get());
  return page;
}

/// What was drawn of a card.
class Picture {
 public:
  void draw(const CardScene& scene, const CardStyle& style) {
    surface_ = surface(kWidth, kHeight);
    layout_ = PictureLayout(scene.card, kWidth, kHeight, kLine);
    const std::shared_ptr<cairo_t> cr(cairo_create(surface_.get()), cairo_destroy);
    drawing_.draw(cr.get(), scene, layout_, style);
    EXPECT_EQ(cairo_status(cr.get()), CAIRO_STATUS_SUCCESS);
    cairo_surface_flush(surface_.get());
  }

  Pixel at(PicturePoint place) const {
    const auto* const data = cairo_image_surface_get_data(surface_.get());
    const auto row = static_cast<std::size_t>(place.y) *
                     static_cast<std::size_t>(cairo_image_surface_get_stride(surface_.get()));
    Pixel pixel = 0;
    std::memcpy(&pixel, data + row + 4 * static_cast<std::size_t>(place.x), sizeof pixel);
    return pixel;
  }

  /// The place at a share of the card's width and height.
  PicturePoint on(double across, double down) const {
    const PictureBox& card = layout_.card();
    return {card.left + across * card.width, card.top + down * card.height};
  }
  Pixel atCard(double across, double down) const { return at(on(across, down)); }

  /// How many pixels of the box have something on them.
  int drawnIn(const PictureBox& box) const {
    int count = 0;
    for (double y = box.top; y < box.bottom(); ++y) {
      for (double x = box.left; x < box.right(); ++x) count += at({x, y}) != kNothing ? 1 : 0;
    }
    return count;
  }

  /// How many lines stand side by side on `ground` between two places in a row or in a column.
  int linesBetween(PicturePoint from, PicturePoint to, Pixel ground = kNothing) const {
    int count = 0;
    bool isInLine = false;
    for (double y = from.y; y <= to.y; ++y) {
      for (double x = from.x; x <= to.x; ++x) {
        const bool isDrawn = at({x, y}) != ground;
        count += isDrawn && !isInLine ? 1 : 0;
        isInLine = isDrawn;
      }
    }
    return count;
  }

  const PictureLayout& layout() const { return layout_; }

 private:
  CardDrawing drawing_;
  PictureLayout layout_;
  Surface surface_;
};

/// How far rulers and the mark of the corner are from the card.
constexpr double kGap = 0.15 * kLine;

/// How many marks of the ruler above the card are longer than that, in lines of text.
int marksAbove(const Picture& picture, double length) {
  const PictureBox& card = picture.layout().card();
  const double y = card.top - kGap - length * kLine;
  return picture.linesBetween({card.left - 1, y}, {card.right() + 1, y});
}

int marksBeside(const Picture& picture, double length) {
  const PictureBox& card = picture.layout().card();
  const double x = card.left - kGap - length * kLine;
  return picture.linesBetween({x, card.top - 1}, {x, card.bottom() + 1});
}

// Lengths between those of the marks.
constexpr double kFine = 0.13;
constexpr double kMiddle = 0.28;
constexpr double kNumbered = 0.44;

int lightness(Pixel pixel) {
  return static_cast<int>((pixel >> 16 & 0xFF) + (pixel >> 8 & 0xFF) + (pixel & 0xFF));
}

TEST(CardDrawing, ABlankCardHasTheCardsColourAndRoundCorners) {
  Picture picture;
  picture.draw(blankCard(), plainStyle());
  EXPECT_EQ(picture.atCard(0.5, 0.5), kWhite);
  EXPECT_EQ(picture.atCard(0.5, 0.02), kWhite);
  EXPECT_NE(picture.atCard(0.002, 0.004), kWhite) << "the corner is cut off";
  EXPECT_EQ(picture.atCard(1.03, 0.5), kNothing) << "nothing is beside it";
}

TEST(CardDrawing, APageFillsTheCardAndNoMore) {
  for (const double scale : {1.0, 2.0}) {
    const Surface document = page(480, 300);
    cairo_surface_set_device_scale(document.get(), scale, scale);
    CardStyle style = plainStyle();
    style.page = document.get();
    Picture picture;
    picture.draw(blankCard(), style);
    EXPECT_EQ(picture.atCard(0.02, 0.5), kRed) << scale;
    EXPECT_EQ(picture.atCard(0.48, 0.98), kRed) << scale;
    EXPECT_EQ(picture.atCard(0.52, 0.02), kGreen) << scale;
    EXPECT_EQ(picture.atCard(0.98, 0.5), kGreen) << scale;
    EXPECT_EQ(picture.atCard(1.03, 0.5), kNothing) << scale;
    EXPECT_NE(picture.atCard(0.002, 0.004), kRed) << "a page has the card's corners";
  }
}

TEST(CardDrawing, AnotherPageTakesThePlaceOfTheFirst) {
  const Surface first = page(240, 150);
  const Surface second = page(240, 150, true);
  CardStyle style = plainStyle();
  Picture picture;
  style.page = first.get();
  picture.draw(blankCard(), style);
  EXPECT_EQ(picture.atCard(0.25, 0.5), kRed);
  style.page = second.get();
  picture.draw(blankCard(), style);
  EXPECT_EQ(picture.atCard(0.25, 0.5), kGreen);
  style.page = nullptr;
  picture.draw(blankCard(), style);
  EXPECT_EQ(picture.atCard(0.25, 0.5), kWhite);
}

TEST(CardDrawing, WhatThePrinterCannotReachIsShadedOnEachSide) {
  CardScene scene = blankCard();
  scene.card.margins = {.left = 24, .top = 15, .right = 48, .bottom = 30};
  Picture picture;
  picture.draw(scene, plainStyle());
  EXPECT_EQ(picture.atCard(0.5, 0.5), kWhite);
  EXPECT_EQ(picture.atCard(0.12, 0.5), kWhite);
  EXPECT_EQ(picture.atCard(0.5, 0.12), kWhite);
  const Pixel shade = picture.atCard(0.05, 0.5);
  EXPECT_LT(lightness(shade), lightness(kWhite));
  EXPECT_GT(lightness(shade), lightness(kBlack));
  EXPECT_EQ(picture.atCard(0.5, 0.05), shade);
  EXPECT_EQ(picture.atCard(0.85, 0.5), shade);
  EXPECT_EQ(picture.atCard(0.5, 0.85), shade);
}

TEST(CardDrawing, ACardWithoutASizeIsNotDrawn) {
  CardScene scene;
  scene.fixed = {{0, 0, 60, 40}};
  Picture picture;
  picture.draw(scene, plainStyle());
  EXPECT_EQ(picture.drawnIn({0, 0, kWidth, kHeight}), 0);
}

TEST(CardDrawing, TheCornerThatCountsAsNoughtIsMarked) {
  CardScene scene = blankCard();
  Picture picture;
  picture.draw(scene, plainStyle());
  const PictureBox& card = picture.layout().card();
  const PictureBox above{card.left - 1.5 * kLine, card.top - 1.5 * kLine, kLine, kLine};
  const PictureBox below{card.left - 1.5 * kLine, card.bottom() + 0.5 * kLine, kLine, kLine};
  EXPECT_GT(picture.drawnIn(above), 0);
  EXPECT_EQ(picture.drawnIn(below), 0);
  scene.card.countsFromBottom = true;
  picture.draw(scene, plainStyle());
  EXPECT_EQ(picture.drawnIn(above), 0);
  EXPECT_GT(picture.drawnIn(below), 0);
}

TEST(CardDrawing, TheMarkOfTheCornerIsALineHighAndWide) {
  for (const bool fromBottom : {false, true}) {
    CardScene scene = blankCard();
    scene.card.countsFromBottom = fromBottom;
    Picture picture;
    picture.draw(scene, plainStyle());
    const PictureBox& card = picture.layout().card();
    const double inwards = fromBottom ? -1 : 1;
    const double corner = fromBottom ? card.bottom() : card.top;
    const auto upright = [&](double lines) {
      return picture.at({card.left - kGap + 0.5, corner + inwards * lines * kLine});
    };
    const auto level = [&](double lines) {
      return picture.at({card.left + lines * kLine, corner - inwards * (kGap - 0.5)});
    };
    EXPECT_NE(upright(0.8), kNothing) << fromBottom;
    EXPECT_EQ(upright(1.3), kNothing) << fromBottom;
    EXPECT_NE(level(0.8), kNothing) << fromBottom;
    EXPECT_EQ(level(1.3), kNothing) << fromBottom;
  }
}

TEST(CardDrawing, RulersHaveAMarkEachMillimeterAndANumberEachTenth) {
  const test::ScopedLocale metric(LC_MEASUREMENT, "de_DE.UTF-8");
  Picture picture;
  picture.draw(blankCard(), plainStyle());
  EXPECT_EQ(marksAbove(picture, kFine), 85);
  EXPECT_EQ(marksAbove(picture, kMiddle), 17);
  EXPECT_EQ(marksAbove(picture, kNumbered), 9);
  EXPECT_EQ(marksAbove(picture, 0.6), 0);
  EXPECT_EQ(marksBeside(picture, kFine), 53);
  EXPECT_EQ(marksBeside(picture, kMiddle), 11);
  EXPECT_EQ(marksBeside(picture, kNumbered), 6);
  EXPECT_EQ(marksBeside(picture, 0.6), 0);
  const PictureBox& card = picture.layout().card();
  const double millimeter = card.width / 240 * 72 / 25.4;
  for (const int mark : {0, 5, 10, 15, 20, 80, 85}) {
    const PictureBox number{card.left + mark * millimeter - 3, card.top - kGap - kLine - 3, 6, 6};
    EXPECT_EQ(picture.drawnIn(number) > 0, mark != 0 && mark % 10 == 0) << mark;
  }
}

TEST(CardDrawing, TheRulerBesideTheCardCountsFromTheCorner) {
  const test::ScopedLocale metric(LC_MEASUREMENT, "de_DE.UTF-8");
  CardScene scene = blankCard();
  for (const bool fromBottom : {false, true}) {
    scene.card.countsFromBottom = fromBottom;
    Picture picture;
    picture.draw(scene, plainStyle());
    EXPECT_EQ(marksBeside(picture, kFine), 53);
    const PictureBox& card = picture.layout().card();
    const double x = card.left - kGap - kNumbered * kLine;
    EXPECT_EQ(picture.linesBetween({x, card.top - 2}, {x, card.top + 2}), fromBottom ? 0 : 1);
    EXPECT_EQ(picture.linesBetween({x, card.bottom() - 2}, {x, card.bottom() + 2}),
              fromBottom ? 1 : 0);
  }
}

TEST(CardDrawing, RulersLeaveOutWhatHasNoRoom) {
  const test::ScopedLocale metric(LC_MEASUREMENT, "de_DE.UTF-8");
  CardScene scene = blankCard();
  scene.card.width *= 3;
  scene.card.height *= 3;
  Picture picture;
  picture.draw(scene, plainStyle());
  EXPECT_EQ(marksAbove(picture, kFine), 51);
  EXPECT_EQ(marksAbove(picture, kNumbered), 13);
  EXPECT_EQ(marksBeside(picture, kFine), 32);
  EXPECT_EQ(marksBeside(picture, kNumbered), 8);
}

TEST(CardDrawing, RulersAreInInchesWherePeopleMeasureSo) {
  const test::ScopedLocale american(LC_MEASUREMENT, "en_US.UTF-8");
  Picture picture;
  picture.draw(blankCard(), plainStyle());
  EXPECT_EQ(marksAbove(picture, kFine), 27);
  EXPECT_EQ(marksAbove(picture, kMiddle), 7);
  EXPECT_EQ(marksAbove(picture, kNumbered), 4);
}

TEST(CardDrawing, RulersInInchesLeaveOutWhatHasNoRoom) {
  const test::ScopedLocale american(LC_MEASUREMENT, "en_US.UTF-8");
  CardScene scene = blankCard();
  scene.card.width *= 8;
  scene.card.height *= 8;
  Picture picture;
  picture.draw(scene, plainStyle());
  EXPECT_EQ(marksAbove(picture, kFine), 54);
  EXPECT_EQ(marksAbove(picture, kMiddle), 54);
  EXPECT_EQ(marksAbove(picture, kNumbered), 14);
}

TEST(CardDrawing, AnAreaHasItsColourAndThatOfErrorsWhereItIsWrong) {
  CardScene scene = blankCard();
  scene.fixed = {{12, 100, 48, 30}};
  scene.shapes = {{.key = "one", .place = {12, 15, 96, 60}, .texts = {}, .warnings = {}},
                  {.key = "two", .place = {132, 15, 96, 60}, .texts = {}, .warnings = {}}};
  scene.shapes[1].warnings.push_back({dialog::AreaWarning::Kind::covered, "two", "It is covered."});
  Picture picture;
  picture.draw(scene, plainStyle());
  EXPECT_EQ(picture.at({picture.on(0.05, 0).x, picture.on(0, 0.3).y}), kBlue) << "its left edge";
  EXPECT_EQ(picture.at({picture.on(0.55, 0).x, picture.on(0, 0.3).y}), kRed);
  EXPECT_EQ(picture.at({picture.on(0.05, 0).x, picture.on(0, 0.75).y}), kBlue) << "the fixed one";
  EXPECT_NE(picture.atCard(0.1, 0.2), kWhite) << "it is tinted within";
  EXPECT_EQ(picture.atCard(0.5, 0.9), kWhite);
}

/// One area in the middle of the card.
CardScene oneArea() {
  CardScene scene = blankCard();
  scene.shapes = {{.key = "one", .place = {60, 45, 120, 60}, .texts = {}, .warnings = {}}};
  return scene;
}

/// Where that is in the picture.
PictureBox boxOfArea(const Picture& picture) {
  const PictureBox box = picture.layout().boxOf({60, 45, 120, 60});
  const double left = std::round(box.left);
  const double top = std::round(box.top);
  return {left, top, std::round(box.right()) - left, std::round(box.bottom()) - top};
}

TEST(CardDrawing, AnAreaToExcludeIsHatched) {
  CardScene scene = oneArea();
  scene.shapes[0].include = false;
  for (const bool isWrong : {false, true}) {
    if (isWrong) {
      scene.shapes[0].warnings.push_back({dialog::AreaWarning::Kind::covered, "one", "Covered."});
    }
    Picture picture;
    picture.draw(scene, plainStyle());
    const PictureBox box = boxOfArea(picture);
    const double y = box.top + 0.8 * box.height;
    const int lines = picture.linesBetween({box.left + 4, y}, {box.right() - 4, y}, kWhite);
    EXPECT_NEAR(lines, box.width / (kLine / 2), 2) << isWrong;
    const double above = box.top - 8;
    EXPECT_EQ(picture.linesBetween({box.left, above}, {box.right() - 40, above}, kWhite), 0);
    bool isRed = false;
    for (double x = box.left + 4; x < box.right() - 4; ++x) {
      const Pixel pixel = picture.at({x, y});
      isRed = isRed || (pixel >> 16 & 0xFF) > (pixel & 0xFF);
    }
    EXPECT_EQ(isRed, isWrong);
  }
}

TEST(CardDrawing, AnAreaHasItsNumberInTheMiddle) {
  Picture picture;
  const auto darkPixels = [&picture](const PictureBox& box) {
    int count = 0;
    for (double y = box.top; y < box.bottom(); ++y) {
      for (double x = box.left; x < box.right(); ++x) {
        count += lightness(picture.at({x, y})) < 200 ? 1 : 0;
      }
    }
    return count;
  };
  CardScene scene = oneArea();
  scene.shapes[0].number = 8;
  picture.draw(scene, plainStyle());
  const PictureBox box = boxOfArea(picture);
  const double half = 0.6 * kLine;
  const PictureBox middle{std::round(box.left + box.width / 2 - half),
                          std::round(box.top + box.height / 2 - half), 2 * half, 2 * half};
  const int dark = darkPixels(middle);
  EXPECT_GT(dark, 10);
  EXPECT_GT(lightness(picture.at({middle.left + 1, middle.top + 1})),
            lightness(picture.at({middle.left - 4, middle.top - 4})))
      << "it stands on the card's colour";
  scene.shapes[0].number = 1;
  picture.draw(scene, plainStyle());
  EXPECT_NE(darkPixels(middle), dark);
}

TEST(CardDrawing, TheChosenAreaHasHandlesAroundIt) {
  CardStyle style = plainStyle();
  for (const bool isChosen : {false, true}) {
    style.chosen = isChosen ? "one" : "two";
    Picture picture;
    picture.draw(oneArea(), style);
    const PictureBox box = boxOfArea(picture);
    const double middle = std::round(box.left + box.width / 2);
    const double centre = std::round(box.top + box.height / 2);
    for (const double x : {box.left, middle, box.right()}) {
      for (const double y : {box.top, centre, box.bottom()}) {
        if (x == middle && y == centre) continue;
        EXPECT_EQ(picture.at({x, y}) == kWhite, isChosen) << x << ' ' << y;
        EXPECT_EQ(lightness(picture.at({x - 3, y - 3})) < 400, isChosen) << x << ' ' << y;
      }
    }
    EXPECT_GT(lightness(picture.at({middle - 3, centre - 3})), 700)
        << "the ground of its number, without a handle";
  }
}

TEST(CardDrawing, TheChosenAreaHasABroaderEdge) {
  CardStyle style = plainStyle();
  for (const bool isChosen : {false, true}) {
    style.chosen = isChosen ? "one" : "two";
    Picture picture;
    picture.draw(oneArea(), style);
    const PictureBox box = boxOfArea(picture);
    const double y = std::round(box.top + box.height / 4);
    EXPECT_EQ(picture.at({box.left - 1, y}), kBlue);
    EXPECT_EQ(picture.at({box.left - 2, y}), isChosen ? kBlue : kWhite);
    EXPECT_EQ(picture.at({box.left - 3, y}), kWhite);
  }
}

TEST(CardDrawing, TheFocusIsADashedLineAroundWhatHasIt) {
  CardStyle style = plainStyle();
  const auto dashes = [&style](bool aroundArea) {
    Picture picture;
    picture.draw(oneArea(), style);
    const PictureBox box = aroundArea ? boxOfArea(picture) : picture.layout().card();
    const double x = aroundArea ? box.left - 5 : std::round(box.left) - 2;
    return picture.linesBetween({x, box.top + 20}, {x, box.bottom() - 20},
                                aroundArea ? kWhite : kNothing);
  };
  EXPECT_EQ(dashes(true), 0);
  const int without = dashes(false);
  style.hasFocus = true;
  EXPECT_EQ(dashes(true), 0);
  EXPECT_GT(dashes(false), without + 5);
  style.chosen = "one";
  EXPECT_GT(dashes(true), 5);
  EXPECT_EQ(dashes(false), without);
  style.hasFocus = false;
  EXPECT_EQ(dashes(true), 0);
}

TEST(CardDrawing, AColourIsReadableNearerToTheInk) {
  const Colour colour = readable({1, 0, 0.5}, {0, 1, 0.5});
  EXPECT_NEAR(colour.red, 0.7, 1e-9);
  EXPECT_NEAR(colour.green, 0.3, 1e-9);
  EXPECT_NEAR(colour.blue, 0.5, 1e-9);
}

TEST(CardDrawing, AWrongAreaHasASignAtItsCorner) {
  CardScene scene = oneArea();
  scene.shapes[0].warnings.push_back({dialog::AreaWarning::Kind::covered, "one", "Covered."});
  Picture picture;
  picture.draw(scene, plainStyle());
  const PictureBox box = boxOfArea(picture);
  const double size = 1.3 * kLine;
  const auto sign = [&](double across, double down) {
    return picture.at({box.right() - size + across * size, box.top + down * size});
  };
  EXPECT_EQ(sign(0.5, 1), kRed) << "its foot";
  EXPECT_EQ(sign(0.3, 0.85), kWhite);
  EXPECT_EQ(sign(0.5, 0.5), kRed) << "the line of its exclamation mark";
  EXPECT_EQ(sign(0.5, 0.82), kRed) << "and the dot";
  EXPECT_NE(sign(0.5, 0.7), kRed);
}

}  // namespace
}  // namespace cardpanels::cairo
