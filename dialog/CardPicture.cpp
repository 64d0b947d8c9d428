#include "dialog/CardPicture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "dialog/TypedAreas.h"
#include "host/JobOptions.h"

namespace cardpanels::dialog {
namespace {

constexpr double kMillimeter = 72 / 25.4;
constexpr double kFewestPixels = 3;  // less is a click

/// The way that an arrow goes in the picture, down and right being 1.
PicturePoint directionOf(PictureKey key) {
  switch (key) {
    case PictureKey::left: return {-1, 0};
    case PictureKey::right: return {1, 0};
    case PictureKey::up: return {0, -1};
    case PictureKey::down: return {0, 1};
    default: return {0, 0};
  }
}

bool isArrow(PictureKey key) {
  const PicturePoint direction = directionOf(key);
  return direction.x != 0 || direction.y != 0;
}

}  // namespace

CardPicture::CardPicture(const host::JobOptions& job, const AreaSide& side, TypedAreas& fields)
    : job_(job), side_(side), fields_(fields) {
  refresh();
}

void CardPicture::refresh() {
  scene_ = cardScene(job_, side_, fields_.texts(), fields_.areaBegun());
  scene_.blank = blank_;
  layout_ = PictureLayout(scene_.card, room_.width, room_.height, room_.line);
  if (drag_ && drag_->hasMoved) {
    chosen_ = drag_->key;
  } else if (chosenShape() == nullptr) {
    chosen_.clear();
  }
  tell();
}

void CardPicture::tellBlank(const std::string& why) {
  blank_ = why;
  refresh();
}

void CardPicture::tell() const {
  if (changed_) changed_();
}

const CardShape* CardPicture::shapeOf(const std::string& key) const {
  const auto shape = std::find_if(scene_.shapes.begin(), scene_.shapes.end(),
                                  [&key](const CardShape& each) { return each.key == key; });
  return shape == scene_.shapes.end() ? nullptr : &*shape;
}

const CardShape* CardPicture::chosenShape() const { return shapeOf(chosen_); }

void CardPicture::choose(const std::string& key) {
  chosen_ = shapeOf(key) == nullptr ? "" : key;
  tell();
}

void CardPicture::setRoom(double width, double height, double line) {
  room_ = {width, height, line};
  layout_ = PictureLayout(scene_.card, width, height, line);
}

/// Of the kind that is asked for first, else of the other one.
std::string CardPicture::nextEmptyArea() const {
  if (!hasDefinedAreas(job_, side_)) return {};
  std::string other;
  for (const CardArea& area : areasOf(job_, side_, fields_.texts())) {
    if (!area.isEmpty()) continue;
    if (area.include != drawsExcludes_) return area.key;
    if (other.empty()) other = area.key;
  }
  return other;
}

/// `texts` are those that the place is a change of. A place that cannot be written is not taken.
void CardPicture::type(const std::string& key, const AreaRectangle& place, const AreaTexts& texts) {
  if (const auto written = textsOf(place, texts, scene_.card)) fields_.type(key, *written);
  refresh();
}

void CardPicture::press(PicturePoint place) {
  leave();
  const auto hit = hitAt(scene_.shapes, chosen_, layout_, place);
  chosen_.clear();
  if (hit) {
    const CardShape& shape = scene_.shapes[hit->shape];
    chosen_ = shape.key;
    drag_ = Drag{layout_.onCard(place), hit->grip, shape.texts, shape.place, shape.key};
  } else if (layout_.isOnCard(place)) {
    drag_ = Drag{.from = layout_.onCard(place), .grip = {}, .isDrawn = true};
  }
  tell();
}

void CardPicture::drag(PicturePoint place) {
  if (!drag_) return;
  const PicturePoint now = layout_.onCard(place);
  const PicturePoint by{now.x - drag_->from.x, now.y - drag_->from.y};
  if (!drag_->hasMoved) {
    if (std::hypot(by.x, by.y) * layout_.scale() < kFewestPixels) return;
    if (drag_->isDrawn) drag_->key = nextEmptyArea();
    if (drag_->key.empty()) {
      drag_.reset();
      return;
    }
    drag_->hasMoved = true;
  }
  const AreaRectangle area = drag_->isDrawn ? drawn(drag_->from, now, scene_.card)
                                            : dragged(drag_->place, drag_->grip, by, scene_.card);
  type(drag_->key, area, drag_->texts);
}

void CardPicture::drop() {
  const auto done = std::exchange(drag_, std::nullopt);
  if (done && done->hasMoved) leave();
}

void CardPicture::leave() {
  fields_.storeEdits();
  refresh();
}

bool CardPicture::giveUp() {
  if (const auto given = std::exchange(drag_, std::nullopt); given && given->hasMoved) {
    fields_.type(given->key, given->texts);
    leave();
    return true;
  }
  if (chosen_.empty()) return false;
  choose({});
  return true;
}

const char* CardPicture::cursor(PicturePoint place) const {
  const auto hit = hitAt(scene_.shapes, chosen_, layout_, place);
  const bool isOpen = !hit && (!layout_.isOnCard(place) || nextEmptyArea().empty());
  return isOpen ? "default" : cursorOver(hit, layout_.countsFromBottom());
}

bool CardPicture::press(PictureKey key, const PictureModifiers& held) {
  if (key == PictureKey::release) return giveUp();
  if (drag_) return true;
  if (key == PictureKey::create) return create();
  if (isArrow(key) && !chosen_.empty()) return nudge(key, held);
  if (key == PictureKey::clear && !chosen_.empty()) {
    clear(std::string(chosen_));
    return true;
  }
  if (key == PictureKey::edit && !chosen_.empty()) {
    edit(std::string(chosen_));
    return true;
  }
  return walk(key);
}

/// Chooses another area, from the first to the last.
bool CardPicture::walk(PictureKey key) {
  using Key = PictureKey;
  const auto& shapes = scene_.shapes;
  if (shapes.empty() || key == Key::clear || key == Key::edit) return false;
  const CardShape* const now = chosenShape();
  const bool isBack = key == Key::previous || key == Key::left || key == Key::up;
  const auto last = static_cast<std::ptrdiff_t>(shapes.size()) - 1;
  std::ptrdiff_t place = isBack ? last : 0;
  if (now != nullptr) place = (now - shapes.data()) + (isBack ? -1 : 1);
  if (key == Key::first) place = 0;
  if (key == Key::last) place = last;
  leave();
  choose(std::string(
      shapes[static_cast<std::size_t>(std::clamp(place, std::ptrdiff_t{0}, last))].key));
  return true;
}

/// At least by what the unit of the text can tell.
bool CardPicture::nudge(PictureKey key, const PictureModifiers& held) {
  const CardShape* const shape = chosenShape();
  if (shape == nullptr) return false;
  const PicturePoint direction = directionOf(key);
  const bool isAcross = direction.x != 0;
  const double way = isAcross                       ? direction.x
                     : scene_.card.countsFromBottom ? -direction.y
                                                    : direction.y;
  AreaColumn column = isAcross ? AreaColumn::x : AreaColumn::y;
  if (held.resizes) column = isAcross ? AreaColumn::width : AreaColumn::height;
  const double by =
      std::max((held.fine ? 0.1 : 1) * kMillimeter, leastChange(column, shape->texts, scene_.card));
  AreaRectangle place = shape->place;
  double& start = isAcross ? place.x : place.y;
  double& length = isAcross ? place.width : place.height;
  if (!held.resizes) start = std::max(start + way * by, 0.0);
  if (held.resizes && length + way * by > 0) length += way * by;
  type(std::string(shape->key), place, AreaTexts(shape->texts));
  return true;
}

/// A new area in the middle of the card.
bool CardPicture::create() {
  const std::string key = nextEmptyArea();
  if (key.empty()) return false;
  leave();
  constexpr double kSize = 10 * kMillimeter;
  const host::CardGeometry& card = scene_.card;
  type(key,
       drawn({(card.width - kSize) / 2, (card.height - kSize) / 2},
             {(card.width + kSize) / 2, (card.height + kSize) / 2}, card),
       {});
  choose(key);
  return true;
}

void CardPicture::edit(const std::string& key) {
  choose(key);
  fields_.edit(key);
}

void CardPicture::clear(const std::string& key) {
  fields_.type(key, {});
  leave();
}

}  // namespace cardpanels::dialog
