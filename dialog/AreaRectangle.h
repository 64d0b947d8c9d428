#pragma once

#include <array>
#include <optional>

#include "dialog/CardAreas.h"

namespace cardpanels::host {
struct CardGeometry;
}

namespace cardpanels::dialog {

/// Where an area lies on a side of the card, in points from the corner that is 0/0.
struct AreaRectangle {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double right() const { return x + width; }
  double end() const { return y + height; }  // what is farthest from 0/0
  bool isNothing() const { return width <= 0 || height <= 0; }
  bool operator==(const AreaRectangle&) const = default;
};

/// Where the area of these measurements lies. A missing one is 0; nothing without any, and when one
/// is no measurement.
std::optional<AreaRectangle> rectangleOf(const AreaTexts& texts, const host::CardGeometry& card);

/// The measurements of `rectangle` for the fields that show `texts`. A text that already says what
/// it shall stays as it was typed. Another one keeps its unit, or has that of its row, or for an
/// empty row the one that the locale measures in, with two decimals at most. Nothing when one does
/// not fit into its field.
std::optional<AreaTexts> textsOf(const AreaRectangle& rectangle, const AreaTexts& texts,
                                 const host::CardGeometry& card);

/// The least by which a text that `textsOf` writes for this column can change, in points.
double leastChange(AreaColumn column, const AreaTexts& texts, const host::CardGeometry& card);

}  // namespace cardpanels::dialog
