#include "ports/cairo/CardDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

#include "dialog/CardText.h"
#include "ports/cairo/Marks.h"

namespace cardpanels::cairo {
namespace {

using dialog::CardScene;
using dialog::CardShape;
using dialog::PictureBox;
using dialog::PicturePoint;

constexpr double kCornerRadius = 9;  // points, 3.18 mm

void cardOutline(const Pen& pen) {
  constexpr double kQuarter = std::numbers::pi / 2;
  const PictureBox& card = pen.layout.card();
  const double radius =
      std::min({kCornerRadius * pen.layout.scale(), card.width / 4, card.height / 4});
  cairo_new_sub_path(pen.cr);
  cairo_arc(pen.cr, card.right() - radius, card.top + radius, radius, -kQuarter, 0);
  cairo_arc(pen.cr, card.right() - radius, card.bottom() - radius, radius, 0, kQuarter);
  cairo_arc(pen.cr, card.left + radius, card.bottom() - radius, radius, kQuarter, 2 * kQuarter);
  cairo_arc(pen.cr, card.left + radius, card.top + radius, radius, 2 * kQuarter, 3 * kQuarter);
  cairo_close_path(pen.cr);
}

void drawPage(const Pen& pen) {
  const PictureBox& card = pen.layout.card();
  double across = 1;
  double down = 1;
  cairo_surface_get_device_scale(pen.style.page, &across, &down);
  const double width = cairo_image_surface_get_width(pen.style.page) / across;
  const double height = cairo_image_surface_get_height(pen.style.page) / down;
  cairo_save(pen.cr);
  cardOutline(pen);
  cairo_clip(pen.cr);
  cairo_translate(pen.cr, card.left, card.top);
  cairo_scale(pen.cr, card.width / width, card.height / height);
  cairo_set_source_surface(pen.cr, pen.style.page, 0, 0);
  cairo_paint(pen.cr);
  cairo_restore(pen.cr);
}

/// What the printer cannot reach, shaded to a dotted line.
void drawMargin(const Pen& pen, const host::CardGeometry& card) {
  if (card.margins == host::CardGeometry::Margins()) return;
  const double scale = pen.layout.scale();
  const PictureBox& whole = pen.layout.card();
  const PictureBox inside{whole.left + card.margins.left * scale,
                          whole.top + card.margins.top * scale,
                          whole.width - (card.margins.left + card.margins.right) * scale,
                          whole.height - (card.margins.top + card.margins.bottom) * scale};
  cairo_save(pen.cr);
  cairo_set_fill_rule(pen.cr, CAIRO_FILL_RULE_EVEN_ODD);
  cardOutline(pen);
  pen.box(inside);
  pen.colour(pen.style.colours.onCard, 0.12);
  cairo_fill(pen.cr);
  constexpr std::array kDots{1.0, 2.0};
  cairo_set_dash(pen.cr, kDots.data(), kDots.size(), 0);
  pen.box(inside);
  pen.colour(pen.style.colours.onCard, 0.7);
  cairo_set_line_width(pen.cr, 1);
  cairo_stroke(pen.cr);
  cairo_restore(pen.cr);
}

void drawGround(const Pen& pen, const CardScene& scene) {
  cairo_select_font_face(pen.cr, pen.style.fontFamily.c_str(), CAIRO_FONT_SLANT_NORMAL,
                         CAIRO_FONT_WEIGHT_NORMAL);
  const PictureBox& card = pen.layout.card();
  cardOutline(pen);
  pen.colour(pen.style.colours.card);
  cairo_fill(pen.cr);
  if (pen.style.page != nullptr) drawPage(pen);
  drawMargin(pen, scene.card);
  cardOutline(pen);
  pen.colour(pen.style.colours.ink);
  cairo_set_line_width(pen.cr, 1);
  cairo_stroke(pen.cr);
  cairo_set_font_size(pen.cr, pen.style.fontSize);
  pen.text(dialog::cardSizeText(scene.card),
           {card.left + card.width / 2, card.bottom() + 1.2 * pen.layout.line()});
  drawRulers(pen);
}

/// `box` is whole pixels, and the line is put onto such: what is not costs cairo several times
/// more.
void outline(const Pen& pen, const PictureBox& box, bool isDashed, int width) {
  const std::array dashes{5.0 * width, 3.0 * width};
  const double shift = width % 2 / 2.0;
  if (isDashed) cairo_set_dash(pen.cr, dashes.data(), dashes.size(), 0);
  pen.box({box.left + shift, box.top + shift, box.width, box.height});
  cairo_set_line_width(pen.cr, width);
  cairo_stroke(pen.cr);
  cairo_set_dash(pen.cr, nullptr, 0, 0);
}

void drawFixed(const Pen& pen, const PictureBox& box) {
  pen.colour(pen.style.colours.area, 0.25);
  pen.box(box);
  cairo_fill(pen.cr);
  pen.colour(pen.style.colours.area);
  outline(pen, box, false, 2);
}

/// The number on the card's colour, so that it is read on every ground.
void drawNumber(const Pen& pen, const PictureBox& box, int number) {
  const double size = std::round(1.2 * pen.layout.line());
  const double left = std::round(box.left + (box.width - size) / 2);
  const double top = std::round(box.top + (box.height - size) / 2);
  pen.box({left, top, size, size});
  pen.colour(pen.style.colours.card, 0.85);
  cairo_fill(pen.cr);
  pen.colour(pen.style.colours.onCard);
  pen.text(std::to_string(number), {left + size / 2, top + size / 2});
}

/// What shows of `box` in the picture, and a little where nothing does, in whole pixels.
PictureBox visible(const Pen& pen, const PictureBox& box) {
  const PictureBox& card = pen.layout.card();
  const double around = 0.9 * pen.layout.line();
  const auto cut = [](double from, double length, double least, double most) {
    const double start = std::round(std::clamp(from, least, most));
    return std::pair{start, std::round(std::clamp(from + length, start, most)) - start};
  };
  const auto [left, width] = cut(box.left, box.width, card.left - around, card.right() + around);
  const auto [top, height] = cut(box.top, box.height, card.top - around, card.bottom() + around);
  return {left, top, width, height};
}

/// Tiles for areas to exclude.
struct Hatches {
  cairo_surface_t* good;
  cairo_surface_t* wrong;
};

void drawShape(const Pen& pen, const CardShape& shape, const Hatches& hatches) {
  const bool isWrong = !shape.warnings.empty();
  const bool isChosen = shape.key == pen.style.chosen;
  const PictureBox box = visible(pen, pen.layout.boxOf(shape.place));
  const Colour& colour = isWrong ? pen.style.colours.error : pen.style.colours.area;
  if (shape.include) {
    pen.colour(colour, 0.2);
    pen.box(box);
    cairo_fill(pen.cr);
    pen.colour(colour);
  } else {
    drawHatch(pen, box, isWrong ? hatches.wrong : hatches.good);
    pen.colour(isWrong ? colour : pen.style.colours.onCard);
  }
  outline(pen, box, !shape.include, isChosen ? 4 : 2);
  drawNumber(pen, box, shape.number);
}

/// What is held with the mouse, and where the focus is.
void drawChosen(const Pen& pen, const CardShape& shape) {
  constexpr double kHandle = 6;
  const PictureBox box = visible(pen, pen.layout.boxOf(shape.place));
  const PicturePoint middle{std::round(box.left + box.width / 2),
                            std::round(box.top + box.height / 2)};
  for (const double x : {box.left, middle.x, box.right()}) {
    for (const double y : {box.top, middle.y, box.bottom()}) {
      if (x == middle.x && y == middle.y) continue;
      pen.box({x - kHandle / 2, y - kHandle / 2, kHandle, kHandle});
    }
  }
  pen.colour(pen.style.colours.card);
  cairo_fill_preserve(pen.cr);
  pen.colour(pen.style.colours.onCard);
  cairo_set_line_width(pen.cr, 1);
  cairo_stroke(pen.cr);
  if (!pen.style.hasFocus) return;
  outline(pen, {box.left - 5, box.top - 5, box.width + 10, box.height + 10}, true, 1);
}

void drawSigns(const Pen& pen, const CardScene& scene) {
  const double size = 1.3 * pen.layout.line();
  for (const CardShape& shape : scene.shapes) {
    if (shape.warnings.empty()) continue;
    const PictureBox box = visible(pen, pen.layout.boxOf(shape.place));
    drawSign(pen, {std::max(box.right(), pen.layout.card().left + size), box.top});
  }
}

/// The card hides what is below it, all but its corners, which is cheaper than to blend.
void copyGround(const Pen& pen, cairo_surface_t* ground) {
  const PictureBox& card = pen.layout.card();
  const double inset = std::ceil(kCornerRadius * pen.layout.scale());
  const double left = std::ceil(card.left) + 1;
  const double top = std::ceil(card.top) + 1;
  const double right = std::floor(card.right()) - 1;
  const double bottom = std::floor(card.bottom()) - 1;
  const std::array opaque{
      PictureBox{left + inset, top, right - left - 2 * inset, inset},
      PictureBox{left, top + inset, right - left, bottom - top - 2 * inset},
      PictureBox{left + inset, bottom - inset, right - left - 2 * inset, inset}};
  cairo_set_source_surface(pen.cr, ground, 0, 0);
  cairo_save(pen.cr);
  cairo_set_fill_rule(pen.cr, CAIRO_FILL_RULE_EVEN_ODD);
  pen.box({0, 0, pen.layout.width(), pen.layout.height()});
  for (const PictureBox& each : opaque) pen.box(each);
  cairo_fill(pen.cr);
  cairo_restore(pen.cr);
  cairo_set_operator(pen.cr, CAIRO_OPERATOR_SOURCE);
  for (const PictureBox& each : opaque) pen.box(each);
  cairo_fill(pen.cr);
  cairo_set_operator(pen.cr, CAIRO_OPERATOR_OVER);
}

void drawAreas(const Pen& pen, const CardScene& scene, const Hatches& hatches) {
  cairo_select_font_face(pen.cr, pen.style.fontFamily.c_str(), CAIRO_FONT_SLANT_NORMAL,
                         CAIRO_FONT_WEIGHT_BOLD);
  cairo_set_font_size(pen.cr, pen.style.fontSize);
  for (const auto& place : scene.fixed) drawFixed(pen, visible(pen, pen.layout.boxOf(place)));
  const CardShape* chosen = nullptr;
  for (const CardShape& shape : scene.shapes) {
    drawShape(pen, shape, hatches);
    if (shape.key == pen.style.chosen) chosen = &shape;
  }
  if (chosen != nullptr) {
    drawChosen(pen, *chosen);
  } else if (pen.style.hasFocus) {
    const PictureBox& card = pen.layout.card();
    pen.colour(pen.style.colours.ink);
    outline(pen,
            {std::round(card.left) - 2, std::round(card.top) - 2, std::round(card.width) + 4,
             std::round(card.height) + 4},
            true, 2);
  }
  drawSigns(pen, scene);
}

}  // namespace

Colour readable(const Colour& colour, const Colour& ink) {
  constexpr double kInk = 0.3;
  const auto mixed = [](double one, double other) { return (1 - kInk) * one + kInk * other; };
  return {mixed(colour.red, ink.red), mixed(colour.green, ink.green), mixed(colour.blue, ink.blue)};
}

void CardDrawing::draw(cairo_t* cr, const CardScene& scene, const dialog::PictureLayout& layout,
                       const CardStyle& style) {
  if (!scene.card.hasSize()) return;
  cairo_save(cr);
  const Ground now{scene.card,
                   layout,
                   style.colours,
                   style.fontFamily,
                   style.fontSize,
                   style.page,
                   cairo_get_group_target(cr)};
  if (!ground_ || now != shown_) {
    shown_ = now;
    ground_.reset(cairo_surface_create_similar(now.target, CAIRO_CONTENT_COLOR_ALPHA,
                                               static_cast<int>(std::ceil(layout.width())),
                                               static_cast<int>(std::ceil(layout.height()))),
                  cairo_surface_destroy);
    const std::shared_ptr<cairo_t> own(cairo_create(ground_.get()), cairo_destroy);
    const Pen pen{own.get(), layout, style};
    drawGround(pen, scene);
    hatch_ = hatchTile(pen, style.colours.onCard);
    wrongHatch_ = hatchTile(pen, style.colours.error);
  }
  const Pen pen{cr, layout, style};
  copyGround(pen, ground_.get());
  drawAreas(pen, scene, {hatch_.get(), wrongHatch_.get()});
  cairo_restore(cr);
}

}  // namespace cardpanels::cairo
