#pragma once

#include <string>

namespace cardpanels::dialog {

struct CardScene;
struct CardShape;

/// What a screen reader says of the picture of a side, such as `Front of the card, 85.6 by 54 mm`.
std::string pictureName(const CardScene& scene);

/// What else it says of it: where the choice lies, if the PPD tells that, and why no document is
/// shown; "" for nothing.
std::string pictureDescription(const CardScene& scene);

/// What it says of an area: which one it is, where it lies and what is wrong with it, such as
/// `Include area 1, 12 mm from left, 5 mm from top, 25 by 8 mm; 3 mm outside on the right`.
std::string shapeInWords(const CardScene& scene, const CardShape& shape);

/// The sentences about what is wrong with an area; "" when nothing is.
std::string shapeTroubles(const CardShape& shape);

}  // namespace cardpanels::dialog
