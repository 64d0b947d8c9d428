#pragma once

#include "dialog/AreaRectangle.h"
#include "host/CardGeometry.h"

namespace cardpanels::dialog {

/// A place in a picture, in pixels from its top left corner; or on the card, in points from 0/0.
struct PicturePoint {
  double x = 0;
  double y = 0;
  bool operator==(const PicturePoint&) const = default;
};

/// A part of a picture, in pixels.
struct PictureBox {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;

  double right() const { return left + width; }
  double bottom() const { return top + height; }
  bool operator==(const PictureBox&) const = default;
};

/// How a side of the card lies in a picture: rulers above and on the left, its size below.
class PictureLayout {
 public:
  PictureLayout() = default;

  /// In so many pixels, where a line of text is `line` pixels high.
  PictureLayout(const host::CardGeometry& card, double width, double height, double line);

  /// What a picture so wide is best high, so that the card fills it.
  static double heightFor(const host::CardGeometry& card, double width, double line);

  /// What a picture so high is best wide.
  static double widthFor(const host::CardGeometry& card, double height, double line);

  /// What a picture is at least and best wide, and what it asks for in height when it is so wide,
  /// where a line of text is `line` pixels high.
  static int leastWidth(double line);
  static int naturalWidth(double line);
  static int heightAskedFor(const host::CardGeometry& card, int width, double line);

  /// Pixels a point.
  double scale() const { return scale_; }
  double line() const { return line_; }

  /// All of the picture.
  double width() const { return width_; }
  double height() const { return height_; }

  bool operator==(const PictureLayout&) const = default;

  const PictureBox& card() const { return card_; }
  PictureBox boxOf(const AreaRectangle& area) const;

  /// What of the card is under a place of the picture; below 0 beyond the edge at 0/0.
  PicturePoint onCard(PicturePoint place) const;
  bool isOnCard(PicturePoint place) const;
  bool countsFromBottom() const { return countsFromBottom_; }

 private:
  PictureBox card_;
  double scale_ = 1;
  double width_ = 0;
  double height_ = 0;
  double line_ = 0;
  bool countsFromBottom_ = false;
};

}  // namespace cardpanels::dialog
