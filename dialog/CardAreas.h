#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace cardpanels::host {
class JobOptions;
}

namespace cardpanels::dialog {

/// The measurements of an area, in the order in which it is written.
enum class AreaColumn : std::size_t { x, y, width, height };

/// One text a column, as typed; all are empty for no area.
using AreaTexts = std::array<std::string, 4>;

/// A kind of areas of a side, three of them: what stands before the number in the names of their
/// options and of the outlets of their fields.
struct AreaKind {
  std::string_view key;
  std::string_view field;
};

/// Areas on one side of the card that one option asks for.
struct AreaSide {
  /// One of an option's choices, by its place in the PPD.
  struct Choice {
    const char* option;
    int index;
  };
  Choice definedAreas;
  /// What must be chosen besides; nothing has no option.
  Choice ribbon;
  AreaKind include;
  AreaKind exclude;
  /// The outlet of the view in which the fields are.
  std::string_view fields;

  bool isBack() const { return std::string_view(definedAreas.option).starts_with("back"); }
};

/// One area of a side.
struct CardArea {
  std::string key;  // of its option
  bool include = true;
  int number = 1;  // among its kind
  AreaTexts texts = {};

  const std::string& text(AreaColumn column) const {
    return texts[static_cast<std::size_t>(column)];
  }
  bool isEmpty() const {
    return std::all_of(texts.begin(), texts.end(), [](const auto& text) { return text.empty(); });
  }
};

/// Where a field's text belongs.
struct AreaField {
  std::string key;  // of the area's option
  AreaColumn column = AreaColumn::x;
  bool operator==(const AreaField&) const = default;
};

/// All sides with areas: resin of front and back, peel-off of front and back.
std::span<const AreaSide> areaSides();

/// The options of the areas of `side`: those to include, then those to exclude, by number.
std::vector<std::string> areaKeys(const AreaSide& side);

/// Whether that choice is marked; where nothing is, whether it is the default.
bool isChosen(const host::JobOptions& job, const AreaSide::Choice& wanted);

/// Whether `job` is marked so that the areas of `side` count, and their fields show. An option of
/// which nothing is marked counts as its default.
bool hasDefinedAreas(const host::JobOptions& job, const AreaSide& side);

/// The measurements in an area option's value, with or without `Custom.` before it. Four empty ones
/// for what is no area. The fields of a panel show the same.
AreaTexts areaTexts(std::string_view value);

/// The areas of `side` that `job` has options for, empty ones too: those to include, then those to
/// exclude, by number.
std::vector<CardArea> areasOf(const host::JobOptions& job, const AreaSide& side);

/// The measurements of areas as fields show them, by the option's keyword.
using TypedTexts = std::map<std::string, AreaTexts>;

/// The same with `typed` in place of what the job has.
std::vector<CardArea> areasOf(const host::JobOptions& job, const AreaSide& side,
                              const TypedTexts& typed);

/// What a panel's text field of this outlet holds; nothing for every other outlet.
std::optional<AreaField> areaFieldOf(std::string_view outlet);

}  // namespace cardpanels::dialog
