#include "dialog/PictureText.h"

#include <vector>

#include "dialog/CardScene.h"
#include "dialog/CardText.h"
#include "dialog/PageTexts.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

std::string placeInWords(const AreaRectangle& place, bool countsFromBottom) {
  return filled(countsFromBottom ? _("{x} from left, {y} from bottom, {size}")
                                 : _("{x} from left, {y} from top, {size}"),
                {{"x", lengthText(place.x)},
                 {"y", lengthText(place.y)},
                 {"size", sizeInWords(place.width, place.height)}});
}

std::string named(const std::string& name, const std::string& place) {
  return filled(_("{area}, {place}"), {{"area", name}, {"place", place}});
}

void addTrouble(std::vector<std::string>& all, const AreaWarning& warning, bool countsFromBottom) {
  using Kind = AreaWarning::Kind;
  if (warning.kind == Kind::noSize && all.back() != _("without a size")) {
    all.emplace_back(_("without a size"));
  }
  if (warning.kind == Kind::whollyOutside) all.emplace_back(_("wholly outside the card"));
  if (warning.kind == Kind::covered) all.emplace_back(_("covered by another area"));
  if (warning.across > 0) {
    all.push_back(
        filled(_("{length} outside on the right"), {{"length", lengthText(warning.across)}}));
  }
  if (warning.down > 0) {
    all.push_back(filled(
        countsFromBottom ? _("{length} outside at the top") : _("{length} outside at the bottom"),
        {{"length", lengthText(warning.down)}}));
  }
}

}  // namespace

std::string pictureName(const CardScene& scene) {
  return filled(scene.isBack ? _("Back of the card, {size}") : _("Front of the card, {size}"),
                {{"size", sizeInWords(scene.card.width, scene.card.height)}});
}

std::string pictureDescription(const CardScene& scene) {
  std::vector<std::string> all;
  for (const AreaRectangle& place : scene.fixed) {
    all.push_back(named(scene.fixedTitle, placeInWords(place, scene.card.countsFromBottom)));
  }
  if (!scene.blank.empty()) all.push_back(scene.blank);
  return joined(all, "; ");
}

std::string shapeInWords(const CardScene& scene, const CardShape& shape) {
  const std::string name =
      filled(shape.include ? _("Include area {number}") : _("Exclude area {number}"),
             {{"number", std::to_string(shape.number)}});
  std::vector<std::string> all{named(name, placeInWords(shape.place, scene.card.countsFromBottom))};
  for (const AreaWarning& warning : shape.warnings) {
    addTrouble(all, warning, scene.card.countsFromBottom);
  }
  return joined(all, "; ");
}

std::string shapeTroubles(const CardShape& shape) {
  std::vector<std::string> all;
  for (const AreaWarning& warning : shape.warnings) all.push_back(warning.sentence);
  return joined(all, " ");
}

}  // namespace cardpanels::dialog
