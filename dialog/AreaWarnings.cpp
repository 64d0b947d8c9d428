#include "dialog/AreaWarnings.h"

#include <cups/ppd.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <optional>
#include <utility>

#include "dialog/AreaRectangle.h"
#include "dialog/CardText.h"
#include "host/CardGeometry.h"
#include "host/JobOptions.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

/// Where an area lies in one direction, in points.
struct Extent {
  double start;
  double length;

  double end() const { return start + length; }
};

/// One direction of the card, which is without end where its size is not known.
struct Axis {
  double cardLength;
  double dotsPerInch;

  Axis(const host::CardGeometry& card, double length, double resolution)
      : cardLength(card.hasSize() ? length : std::numeric_limits<double>::infinity()),
        dotsPerInch(resolution) {}

  double tolerance() const { return std::max(0.5 * 72 / dotsPerInch, 0.1 * 72 / 25.4); }

  /// How much of `extent` is off the card, 0 within the tolerance.
  double outside(const Extent& extent) const {
    const double over = extent.end() - cardLength;
    return over > tolerance() ? over : 0;
  }

  bool isWhollyOutside(const Extent& extent) const {
    return outside(extent) > 0 && extent.start > cardLength - tolerance();
  }

  /// Whether `cover` leaves nothing of what lies on the card of `extent`.
  bool covers(const Extent& cover, const Extent& extent) const {
    return cover.start <= extent.start + tolerance() &&
           cover.end() >= std::min(extent.end(), cardLength) - tolerance();
  }
};

/// An area that can be measured.
struct Rectangle {
  Extent across;
  Extent down;

  bool isNothing() const { return across.length <= 0 || down.length <= 0; }
};

/// Judges the areas of one side, which count as `job` is marked.
class Judge {
 public:
  Judge(const host::JobOptions& job, const AreaSide& side, const std::vector<CardArea>& areas,
        const host::CardGeometry& card)
      : job_(job),
        side_(side),
        areas_(areas),
        card_(card),
        across_(card, card.width, card.dotsPerInchAcross),
        down_(card, card.height, card.dotsPerInchDown) {}

  std::vector<AreaWarning> warnings() {
    const bool hasNone = std::all_of(areas_.begin(), areas_.end(),
                                     [](const CardArea& area) { return area.isEmpty(); });
    if (hasNone && !areas_.empty()) tellNoArea();
    for (const CardArea& area : areas_) {
      if (const auto rectangle = measured(area)) judge(area, *rectangle);
    }
    return std::move(warnings_);
  }

 private:
  using Column = AreaColumn;
  using Kind = AreaWarning::Kind;

  std::optional<Rectangle> measured(const CardArea& area) const {
    const auto place = rectangleOf(area.texts, card_);
    if (!place) return std::nullopt;
    return Rectangle{{place->x, place->width}, {place->y, place->height}};
  }

  void judge(const CardArea& area, const Rectangle& rectangle) {
    if (rectangle.isNothing()) {
      tellNothing(area, rectangle);
    } else if (across_.isWhollyOutside(rectangle.across) || down_.isWhollyOutside(rectangle.down)) {
      tellWhollyOutside(area, rectangle);
    } else {
      tellPartlyOutside(area, rectangle);
      if (area.include) tellCovered(area, rectangle);
    }
  }

  void tellNoArea() {
    const auto& [option, index] = side_.definedAreas;
    const ppd_choice_t& choice = ppdFindOption(job_.ppd(), option)->choices[index];
    warnings_.push_back({Kind::noArea, option,
                         filled(_("“{option}” is “{choice}”, but there is no area."),
                                {{"option", job_.optionTitle(option)},
                                 {"choice", job_.choiceTitle(option, choice.choice)}})});
  }

  void tellNothing(const CardArea& area, const Rectangle& rectangle) {
    const bool isWidthMissing = area.text(Column::width).empty();
    const bool isHeightMissing = area.text(Column::height).empty();
    const bool isWidthZero = !isWidthMissing && rectangle.across.length <= 0;
    const bool isHeightZero = !isHeightMissing && rectangle.down.length <= 0;
    if (isWidthMissing && isHeightMissing) {
      return tell(area, Kind::noSize, _("“{area}” has no width and no height."),
                  {Column::width, Column::height});
    }
    if (isWidthZero && isHeightZero) {
      return tell(area, Kind::noSize, _("The width and the height of “{area}” are zero."),
                  {Column::width, Column::height});
    }
    if (isWidthMissing) tell(area, Kind::noSize, _("“{area}” has no width."), {Column::width});
    if (isWidthZero) tell(area, Kind::noSize, _("The width of “{area}” is zero."), {Column::width});
    if (isHeightMissing) tell(area, Kind::noSize, _("“{area}” has no height."), {Column::height});
    if (isHeightZero)
      tell(area, Kind::noSize, _("The height of “{area}” is zero."), {Column::height});
  }

  void tellWhollyOutside(const CardArea& area, const Rectangle& rectangle) {
    std::vector<Column> columns;
    if (across_.isWhollyOutside(rectangle.across)) columns.push_back(Column::x);
    if (down_.isWhollyOutside(rectangle.down)) columns.push_back(Column::y);
    tell(area, Kind::whollyOutside, _("“{area}” is wholly outside the card, which is {size}."),
         std::move(columns));
  }

  void tellPartlyOutside(const CardArea& area, const Rectangle& rectangle) {
    const double across = across_.outside(rectangle.across);
    const double down = down_.outside(rectangle.down);
    if (across > 0 && down > 0) {
      tell(area, Kind::partlyOutside,
           card_.countsFromBottom
               ? _("“{area}” is outside the card: {across} on the right and {down} at the top.")
               : _("“{area}” is outside the card: {across} on the right and {down} at the bottom."),
           {Column::x, Column::y, Column::width, Column::height}, across, down);
    } else if (across > 0) {
      tell(area, Kind::partlyOutside, _("“{area}” is {across} outside the card on the right."),
           {Column::x, Column::width}, across, down);
    } else if (down > 0) {
      tell(area, Kind::partlyOutside,
           card_.countsFromBottom ? _("“{area}” is {down} outside the card at the top.")
                                  : _("“{area}” is {down} outside the card at the bottom."),
           {Column::y, Column::height}, across, down);
    }
  }

  void tellCovered(const CardArea& area, const Rectangle& rectangle) {
    const auto covers = [&](const CardArea& other) {
      const auto cover = other.include ? std::nullopt : measured(other);
      return cover && across_.covers(cover->across, rectangle.across) &&
             down_.covers(cover->down, rectangle.down);
    };
    const auto cover = std::find_if(areas_.begin(), areas_.end(), covers);
    if (cover == areas_.end()) return;
    warnings_.push_back(
        {Kind::covered,
         area.key,
         filled(_("“{other}” covers “{area}” wholly, so nothing is left of it."),
                {{"other", job_.optionTitle(cover->key)}, {"area", job_.optionTitle(area.key)}}),
         {Column::x, Column::y, Column::width, Column::height}});
  }

  void tell(const CardArea& area, Kind kind, const char* sentence, std::vector<Column> columns,
            double across = 0, double down = 0) {
    warnings_.push_back({kind, area.key,
                         filled(sentence, {{"area", job_.optionTitle(area.key)},
                                           {"size", cardSizeText(card_)},
                                           {"across", lengthText(across)},
                                           {"down", lengthText(down)}}),
                         std::move(columns), across, down});
  }

  const host::JobOptions& job_;
  const AreaSide& side_;
  const std::vector<CardArea>& areas_;
  const host::CardGeometry& card_;
  const Axis across_;
  const Axis down_;
  std::vector<AreaWarning> warnings_;
};

}  // namespace

std::vector<AreaWarning> areaWarnings(const host::JobOptions& job, const AreaSide& side,
                                      const std::vector<CardArea>& areas,
                                      const host::CardGeometry& card) {
  if (!hasDefinedAreas(job, side)) return {};
  return Judge(job, side, areas, card).warnings();
}

std::vector<AreaWarning> areaWarnings(const host::JobOptions& job) {
  const host::CardGeometry card = host::cardGeometry(job);
  std::vector<AreaWarning> all;
  for (const AreaSide& side : areaSides()) {
    auto warnings = areaWarnings(job, side, areasOf(job, side), card);
    std::move(warnings.begin(), warnings.end(), std::back_inserter(all));
  }
  return all;
}

}  // namespace cardpanels::dialog
