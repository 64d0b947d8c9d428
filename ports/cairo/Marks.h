#pragma once

#include <cairo.h>

#include <memory>
#include <string>

#include "dialog/PictureLayout.h"
#include "ports/cairo/CardDrawing.h"

namespace cardpanels::cairo {

/// What a picture is drawn with.
struct Pen {
  cairo_t* cr;
  const dialog::PictureLayout& layout;
  const CardStyle& style;

  void colour(const Colour& colour, double alpha = 1) const {
    cairo_set_source_rgba(cr, colour.red, colour.green, colour.blue, alpha);
  }
  void box(const dialog::PictureBox& box) const {
    cairo_rectangle(cr, box.left, box.top, box.width, box.height);
  }
  /// Writes `text` with its middle at a place.
  void text(const std::string& text, dialog::PicturePoint middle) const;
};

/// The rulers along the card, in mm, or in inches where the locale measures so, and the corner from
/// which they count.
void drawRulers(const Pen& pen);

/// A tile of thin lines: to draw them one by one would cost several times as much.
std::shared_ptr<cairo_surface_t> hatchTile(const Pen& pen, const Colour& colour);

/// Covers `box`, which is whole pixels, with it.
void drawHatch(const Pen& pen, const dialog::PictureBox& box, cairo_surface_t* tile);

/// A warning triangle whose top right corner is at a place.
void drawSign(const Pen& pen, dialog::PicturePoint corner);

}  // namespace cardpanels::cairo
