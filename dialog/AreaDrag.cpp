#include "dialog/AreaDrag.h"

#include <algorithm>
#include <cmath>

#include "host/CardGeometry.h"

namespace cardpanels::dialog {
namespace {

constexpr double kMillimeter = 72 / 25.4;
constexpr double kStep = 0.5 * kMillimeter;
constexpr double kKeptOnCard = kMillimeter;
constexpr double kReach = 6;  // pixels around an edge

/// One direction of an area.
struct Span {
  double start;
  double length;
};

double snapped(double place, double cardLength) {
  if (std::abs(place - cardLength) < kStep / 2) return cardLength;
  return std::max(std::round(place / kStep) * kStep, 0.0);
}

Span dragged(Span span, bool holdsStart, bool holdsEnd, bool moves, double by, double cardLength) {
  if (std::abs(by) < kStep / 2) return span;
  const double end = span.start + span.length;
  if (moves) {
    const double most = std::max(span.start, cardLength - kKeptOnCard);
    const double start = snapped(span.start + by, cardLength);
    return {std::clamp(start, 0.0, most), span.length};
  }
  if (holdsStart) {
    const double start = std::min(snapped(span.start + by, cardLength), std::max(end - kStep, 0.0));
    return {start, end - start};
  }
  if (holdsEnd) {
    return {span.start, std::max(snapped(end + by, cardLength) - span.start, kStep)};
  }
  return span;
}

Span drawn(double from, double to, double cardLength) {
  const double start = std::min(snapped(std::min(from, to), cardLength), cardLength - kStep);
  const double end = std::max(snapped(std::max(from, to), cardLength), start + kStep);
  return {start, end - start};
}

/// Whether `place` is near `edge`, and no farther inside than a third of the area's `length`.
bool isNear(double place, double edge, double inwards, double length) {
  const double inside = (place - edge) * inwards;
  return inside >= -kReach && inside <= std::min(kReach, length / 3);
}

std::optional<Grip> gripAt(const PictureBox& box, PicturePoint place, bool countsFromBottom) {
  const bool isAround = place.x >= box.left - kReach && place.x <= box.right() + kReach &&
                        place.y >= box.top - kReach && place.y <= box.bottom() + kReach;
  if (!isAround) return std::nullopt;
  const bool left = isNear(place.x, box.left, 1, box.width);
  const bool right = !left && isNear(place.x, box.right(), -1, box.width);
  const bool top = isNear(place.y, box.top, 1, box.height);
  const bool bottom = !top && isNear(place.y, box.bottom(), -1, box.height);
  return Grip{left, right, countsFromBottom ? bottom : top, countsFromBottom ? top : bottom};
}

}  // namespace

std::optional<Hit> hitAt(const std::vector<CardShape>& shapes, const std::string& chosen,
                         const PictureLayout& layout, PicturePoint place) {
  std::optional<Hit> hit;
  double least = 0;
  for (std::size_t i = 0; i < shapes.size(); ++i) {
    const PictureBox box = layout.boxOf(shapes[i].place);
    const auto grip = gripAt(box, place, layout.countsFromBottom());
    if (!grip) continue;
    const double size = box.width * box.height;
    if (hit && size >= least && shapes[i].key != chosen) continue;
    hit = Hit{i, *grip};
    least = size;
    if (shapes[i].key == chosen) break;
  }
  return hit;
}

const char* cursorOver(const std::optional<Hit>& hit, bool countsFromBottom) {
  if (!hit) return "crosshair";
  const Grip& grip = hit->grip;
  if (grip.moves()) return "move";
  const bool top = countsFromBottom ? grip.end : grip.start;
  const bool bottom = countsFromBottom ? grip.start : grip.end;
  if (top) return grip.left ? "nw-resize" : grip.right ? "ne-resize" : "n-resize";
  if (bottom) return grip.left ? "sw-resize" : grip.right ? "se-resize" : "s-resize";
  return grip.left ? "w-resize" : "e-resize";
}

AreaRectangle dragged(const AreaRectangle& area, const Grip& grip, PicturePoint by,
                      const host::CardGeometry& card) {
  const Span across =
      dragged(Span{area.x, area.width}, grip.left, grip.right, grip.moves(), by.x, card.width);
  const Span down =
      dragged(Span{area.y, area.height}, grip.start, grip.end, grip.moves(), by.y, card.height);
  return {across.start, down.start, across.length, down.length};
}

AreaRectangle drawn(PicturePoint from, PicturePoint to, const host::CardGeometry& card) {
  const Span across = drawn(from.x, to.x, card.width);
  const Span down = drawn(from.y, to.y, card.height);
  return {across.start, down.start, across.length, down.length};
}

}  // namespace cardpanels::dialog
