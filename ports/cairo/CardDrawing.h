#pragma once

#include <cairo.h>

#include <memory>
#include <string>

#include "dialog/CardScene.h"
#include "dialog/PictureLayout.h"

/// Draws the picture of a side of the card, for every toolkit that has a cairo context.
namespace cardpanels::cairo {

struct Colour {
  double red = 0;
  double green = 0;
  double blue = 0;
  bool operator==(const Colour&) const = default;
};

/// What a port takes from its theme.
struct CardColours {
  Colour card;
  Colour ink;     // rulers and texts around the card
  Colour onCard;  // what stands on it, also on a page of the document
  Colour area;
  Colour error;
  bool operator==(const CardColours&) const = default;
};

/// A colour of the theme as lines of it are seen on the card: nearer to the `ink`.
Colour readable(const Colour& colour, const Colour& ink);

/// How one picture is drawn.
struct CardStyle {
  CardColours colours;
  std::string fontFamily;
  double fontSize = 10;  // pixels
  std::string chosen;    // the option of the chosen area, "" for none
  bool hasFocus = false;
  /// The document's page, which fills the card; null for a blank card.
  cairo_surface_t* page = nullptr;
};

/// Draws the picture of one side, and keeps what stays the same while areas change.
class CardDrawing {
 public:
  /// Draws `scene` as `layout` has it: the card with its corners and its margin, rulers, the corner
  /// that is 0/0, the size, and the areas. What is wrong with an area has the colour of errors and
  /// a sign. Leaves `cr` as it was.
  void draw(cairo_t* cr, const dialog::CardScene& scene, const dialog::PictureLayout& layout,
            const CardStyle& style);

 private:
  /// What the ground shows.
  struct Ground {
    host::CardGeometry card;
    dialog::PictureLayout layout;
    CardColours colours;
    std::string fontFamily;
    double fontSize = 0;
    cairo_surface_t* page = nullptr;
    cairo_surface_t* target = nullptr;
    bool operator==(const Ground&) const = default;
  };

  Ground shown_;
  std::shared_ptr<cairo_surface_t> ground_;
  std::shared_ptr<cairo_surface_t> hatch_;
  std::shared_ptr<cairo_surface_t> wrongHatch_;
};

}  // namespace cardpanels::cairo
