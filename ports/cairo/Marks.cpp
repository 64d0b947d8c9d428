#include "ports/cairo/Marks.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "dialog/CardText.h"

namespace cardpanels::cairo {
namespace {

using dialog::PictureBox;
using dialog::PicturePoint;

constexpr double kMillimeter = 72 / 25.4;
constexpr double kInch = 72;

/// The marks of a ruler, in its unit.
struct Marks {
  double unit;   // in points
  int fine;      // so many marks a unit …
  int middle;    // … of which each so manieth is longer …
  int numbered;  // … and each so manieth has a number
  int dropped;   // each so manieth is left when there is no room
};

constexpr Marks kMillimeters{kMillimeter, 1, 5, 10, 5};
constexpr Marks kInches{kInch, 8, 4, 8, 4};

/// One ruler: marks go out from a place at the card's edge.
struct Ruler {
  PicturePoint start;  // of the mark 0
  PicturePoint way;    // a pixel along the ruler
  PicturePoint out;    // a pixel away from the card
  double length;       // pixels
  double room;         // pixels that a number takes along the ruler
};

void draw(const Pen& pen, const Ruler& ruler, const Marks& marks) {
  const double pixels = marks.unit * pen.layout.scale() / marks.fine;  // a mark
  const int step = pixels < 3 ? marks.dropped : 1;
  const int numbered = pixels * marks.numbered < ruler.room ? 2 * marks.numbered : marks.numbered;
  const double line = pen.layout.line();
  for (int mark = 0; mark * pixels <= ruler.length + 0.01; mark += step) {
    const double at = mark * pixels;
    const PicturePoint foot{ruler.start.x + ruler.way.x * at, ruler.start.y + ruler.way.y * at};
    const double size = line * (mark % numbered == 0 ? 0.5 : mark % marks.middle == 0 ? 0.35 : 0.2);
    cairo_move_to(pen.cr, foot.x, foot.y);
    cairo_rel_line_to(pen.cr, ruler.out.x * size, ruler.out.y * size);
  }
  cairo_set_line_width(pen.cr, 1);
  cairo_stroke(pen.cr);
  for (int mark = numbered; mark * pixels <= ruler.length + 0.01; mark += numbered) {
    const double at = mark * pixels;
    const double away = ruler.way.x != 0 ? line : 1.3 * line;
    pen.text(std::to_string(mark / marks.fine),
             {ruler.start.x + ruler.way.x * at + ruler.out.x * away,
              ruler.start.y + ruler.way.y * at + ruler.out.y * away});
  }
}

}  // namespace

void Pen::text(const std::string& text, PicturePoint middle) const {
  cairo_text_extents_t extents;
  cairo_text_extents(cr, text.c_str(), &extents);
  cairo_move_to(cr, std::round(middle.x - extents.width / 2 - extents.x_bearing),
                std::round(middle.y - extents.height / 2 - extents.y_bearing));
  cairo_show_text(cr, text.c_str());
}

void drawRulers(const Pen& pen) {
  const PictureBox& card = pen.layout.card();
  const Marks& marks = dialog::measuresInInches() ? kInches : kMillimeters;
  const bool fromBottom = pen.layout.countsFromBottom();
  const double line = pen.layout.line();
  const double corner = fromBottom ? card.bottom() : card.top;
  const double gap = 0.15 * line;
  pen.colour(pen.style.colours.ink, 0.8);
  cairo_set_font_size(pen.cr, 0.8 * pen.style.fontSize);
  draw(pen, {{card.left, card.top - gap}, {1, 0}, {0, -1}, card.width, 2 * line}, marks);
  draw(pen,
       {{card.left - gap, corner}, {0, fromBottom ? -1.0 : 1.0}, {-1, 0}, card.height, 1.5 * line},
       marks);
  pen.colour(pen.style.colours.ink);
  cairo_select_font_face(pen.cr, pen.style.fontFamily.c_str(), CAIRO_FONT_SLANT_NORMAL,
                         CAIRO_FONT_WEIGHT_BOLD);
  cairo_set_font_size(pen.cr, pen.style.fontSize);
  const double away = fromBottom ? line : -line;
  pen.text("0", {card.left - line, corner + away});
  const double inwards = fromBottom ? -1 : 1;
  cairo_move_to(pen.cr, card.left - gap, corner + inwards * line);
  cairo_line_to(pen.cr, card.left - gap, corner - inwards * gap);
  cairo_line_to(pen.cr, card.left + line, corner - inwards * gap);
  cairo_set_line_width(pen.cr, 2);
  cairo_stroke(pen.cr);
}

std::shared_ptr<cairo_surface_t> hatchTile(const Pen& pen, const Colour& colour) {
  constexpr int kLines = 10;
  const int step = std::max(4, static_cast<int>(std::round(0.5 * pen.layout.line())));
  const int size = kLines * step;
  std::shared_ptr<cairo_surface_t> tile(
      cairo_surface_create_similar(cairo_get_group_target(pen.cr), CAIRO_CONTENT_COLOR_ALPHA, size,
                                   size),
      cairo_surface_destroy);
  const std::shared_ptr<cairo_t> cr(cairo_create(tile.get()), cairo_destroy);
  for (int corner = 0; corner <= 2 * size; corner += step) {
    cairo_move_to(cr.get(), corner + 1, -1);
    cairo_line_to(cr.get(), -1, corner + 1);
  }
  cairo_set_source_rgba(cr.get(), colour.red, colour.green, colour.blue, 0.6);
  cairo_set_line_width(cr.get(), 1);
  cairo_stroke(cr.get());
  return tile;
}

void drawHatch(const Pen& pen, const PictureBox& box, cairo_surface_t* tile) {
  cairo_set_source_surface(pen.cr, tile, box.left, box.top);
  cairo_pattern_set_extend(cairo_get_source(pen.cr), CAIRO_EXTEND_REPEAT);
  cairo_pattern_set_filter(cairo_get_source(pen.cr), CAIRO_FILTER_NEAREST);
  pen.box(box);
  cairo_fill(pen.cr);
}

void drawSign(const Pen& pen, PicturePoint corner) {
  const double size = 1.3 * pen.layout.line();
  const double left = corner.x - size;
  cairo_move_to(pen.cr, left + size / 2, corner.y);
  cairo_line_to(pen.cr, corner.x, corner.y + size);
  cairo_line_to(pen.cr, left, corner.y + size);
  cairo_close_path(pen.cr);
  pen.colour(pen.style.colours.card);
  cairo_fill_preserve(pen.cr);
  pen.colour(pen.style.colours.error);
  cairo_set_line_width(pen.cr, 2);
  cairo_stroke(pen.cr);
  cairo_set_line_width(pen.cr, 0.13 * size);
  cairo_move_to(pen.cr, left + size / 2, corner.y + 0.35 * size);
  cairo_rel_line_to(pen.cr, 0, 0.32 * size);
  cairo_stroke(pen.cr);
  cairo_arc(pen.cr, left + size / 2, corner.y + 0.82 * size, 0.08 * size, 0, 6.2832);
  cairo_fill(pen.cr);
}

}  // namespace cardpanels::cairo
