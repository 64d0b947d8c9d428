#include "dialog/PictureLayout.h"

#include <algorithm>
#include <cmath>

namespace cardpanels::dialog {
namespace {

// What stands around the card, in lines of text.
constexpr double kLeft = 2.2;   // a ruler's numbers and marks
constexpr double kTop = 1.7;    // the same
constexpr double kRight = 0.9;  // what is off the card
constexpr double kBottom = 2;   // the same, and the size

// The picture's width, in the same.
constexpr double kLeast = 14;
constexpr double kNatural = 20;
constexpr double kMost = 22;

int wholePixels(double length) { return static_cast<int>(std::ceil(length)); }

}  // namespace

PictureLayout::PictureLayout(const host::CardGeometry& card, double width, double height,
                             double line)
    : width_(width), height_(height), line_(line), countsFromBottom_(card.countsFromBottom) {
  if (!card.hasSize()) return;
  const double across = std::max(width - (kLeft + kRight) * line, 1.0);
  const double down = std::max(height - (kTop + kBottom) * line, 1.0);
  scale_ = std::min(across / card.width, down / card.height);
  card_.width = card.width * scale_;
  card_.height = card.height * scale_;
  card_.left = kLeft * line + (across - card_.width) / 2;
  card_.top = kTop * line + (down - card_.height) / 2;
}

double PictureLayout::heightFor(const host::CardGeometry& card, double width, double line) {
  if (!card.hasSize()) return 0;
  const double across = std::max(width - (kLeft + kRight) * line, 1.0);
  return across * card.height / card.width + (kTop + kBottom) * line;
}

double PictureLayout::widthFor(const host::CardGeometry& card, double height, double line) {
  if (!card.hasSize()) return 0;
  const double down = std::max(height - (kTop + kBottom) * line, 1.0);
  return down * card.width / card.height + (kLeft + kRight) * line;
}

int PictureLayout::leastWidth(double line) { return wholePixels(kLeast * line); }

int PictureLayout::naturalWidth(double line) { return wholePixels(kNatural * line); }

int PictureLayout::heightAskedFor(const host::CardGeometry& card, int width, double line) {
  const double most = kMost * line;
  return wholePixels(std::min(heightFor(card, std::min<double>(width, most), line), most));
}

PictureBox PictureLayout::boxOf(const AreaRectangle& area) const {
  const double top =
      countsFromBottom_ ? card_.bottom() - area.end() * scale_ : card_.top + area.y * scale_;
  return {card_.left + area.x * scale_, top, area.width * scale_, area.height * scale_};
}

PicturePoint PictureLayout::onCard(PicturePoint place) const {
  const double down = countsFromBottom_ ? card_.bottom() - place.y : place.y - card_.top;
  return {(place.x - card_.left) / scale_, down / scale_};
}

bool PictureLayout::isOnCard(PicturePoint place) const {
  return place.x >= card_.left && place.x <= card_.right() && place.y >= card_.top &&
         place.y <= card_.bottom();
}

}  // namespace cardpanels::dialog
