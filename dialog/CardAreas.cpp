#include "dialog/CardAreas.h"

#include <cups/ppd.h>

#include <algorithm>
#include <utility>

#include "host/JobOptions.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"

namespace cardpanels::dialog {
namespace {

using platform::isDigit;
using platform::kCustomPrefix;
using platform::startsIgnoringCase;

constexpr int kAreasOfAKind = 3;
constexpr std::size_t kMaximumLength = 20;  // of one measurement

constexpr std::array<AreaSide, 4> kSides{{
    {.definedAreas = {"frontResin", 11},
     .ribbon = {"frontRibbon", 3},
     .include = {"frontResinInclude", "frontResinIncludeField"},
     .exclude = {"frontResinExclude", "frontResinExcludeField"},
     .fields = "frontResinTab"},
    {.definedAreas = {"backResin", 11},
     .ribbon = {"backRibbon", 3},
     .include = {"backResinInclude", "backResinIncludeField"},
     .exclude = {"backResinExclude", "backResinExcludeField"},
     .fields = "backResinTab"},
    {.definedAreas = {"frontPO", 12},
     .ribbon = {},
     .include = {"CustomfrontPeelOff", "frontPeelOffField"},
     .exclude = {"CustomfrontNonPeelOff", "frontNonPeelOffField"},
     .fields = "frontPeelOffArea"},
    {.definedAreas = {"backPO", 12},
     .ribbon = {},
     .include = {"CustombackPeelOff", "backPeelOffField"},
     .exclude = {"CustombackNonPeelOff", "backNonPeelOffField"},
     .fields = "backPeelOffArea"},
}};

/// The ends of outlets' names, by column.
constexpr std::array<std::string_view, 4> kColumns{"_X", "_Y", "_Width", "_Height"};

void skip(std::string_view& text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

/// Takes the number that `text` starts with: digits and at most one point. Empty for none.
std::string_view takeNumber(std::string_view& text) {
  const auto end = [&](std::size_t from) {
    return std::min(text.find_first_not_of("0123456789", from), text.size());
  };
  std::size_t length = end(0);
  if (text.substr(length, 1) == ".") length = end(length + 1);
  const std::string_view number = text.substr(0, length);
  text.remove_prefix(length);
  return number;
}

/// Takes the unit that `text` starts with: `px` where a number follows, and none at the end.
/// Nothing for what is no unit.
std::optional<std::string_view> takeUnit(std::string_view& text) {
  if (text.empty()) return "";
  if (isDigit(text[0]) || std::string_view("-.+").find(text[0]) != std::string_view::npos) {
    return "px";
  }
  for (const std::string_view unit : {"\"", "in", "cm", "mm", "px"}) {
    if (!startsIgnoringCase(text, unit)) continue;
    const std::string_view asWritten = text.substr(0, unit.size());
    text.remove_prefix(unit.size());
    return asWritten;
  }
  return std::nullopt;
}

/// Takes a measurement, the signs before it and the spaces around it.
std::optional<std::string> takeMeasurement(std::string_view& text) {
  skip(text, " +-");
  std::string measurement(takeNumber(text));
  if (measurement.empty()) return std::nullopt;
  skip(text, " ");
  const auto unit = takeUnit(text);
  if (!unit) return std::nullopt;
  measurement += *unit;
  if (measurement.size() > kMaximumLength) return std::nullopt;
  skip(text, " ");
  return measurement;
}

void addAreas(std::vector<CardArea>& areas, const host::JobOptions& job, const AreaKind& kind,
              bool include) {
  for (int number = 1; number <= kAreasOfAKind; ++number) {
    const std::string key = std::string(kind.key) + std::to_string(number);
    if (!job.hasOption(key)) continue;
    areas.push_back({key, include, number, areaTexts(job.marked(key).value_or(""))});
  }
}

/// What stands behind `stem` in `outlet`, such as `1_Width`, as a field of an area of `kind`.
std::optional<AreaField> fieldOfKind(const AreaKind& kind, std::string_view outlet) {
  if (!outlet.starts_with(kind.field)) return std::nullopt;
  const std::string_view rest = outlet.substr(kind.field.size());
  if (rest.empty() || rest[0] < '1' || rest[0] >= '1' + kAreasOfAKind) return std::nullopt;
  const auto* const column = std::find(kColumns.begin(), kColumns.end(), rest.substr(1));
  if (column == kColumns.end()) return std::nullopt;
  return AreaField{std::string(kind.key) + rest[0],
                   static_cast<AreaColumn>(column - kColumns.begin())};
}

}  // namespace

std::span<const AreaSide> areaSides() { return kSides; }

std::vector<std::string> areaKeys(const AreaSide& side) {
  std::vector<std::string> keys;
  for (const AreaKind& kind : {side.include, side.exclude}) {
    for (int number = 1; number <= kAreasOfAKind; ++number) {
      keys.push_back(std::string(kind.key) + std::to_string(number));
    }
  }
  return keys;
}

bool isChosen(const host::JobOptions& job, const AreaSide::Choice& wanted) {
  ppd_option_t* const option = ppdFindOption(job.ppd(), wanted.option);
  if (option == nullptr) return false;
  const ppd_choice_t* choice = ppdFindMarkedChoice(job.ppd(), wanted.option);
  if (choice == nullptr) choice = ppdFindChoice(option, option->defchoice);
  return choice != nullptr && choice - option->choices == wanted.index;
}

bool hasDefinedAreas(const host::JobOptions& job, const AreaSide& side) {
  return isChosen(job, side.definedAreas) &&
         (side.ribbon.option == nullptr || isChosen(job, side.ribbon));
}

AreaTexts areaTexts(std::string_view value) {
  if (value == "0in 0in 0in 0in") return {};
  if (startsIgnoringCase(value, kCustomPrefix)) value.remove_prefix(kCustomPrefix.size());
  AreaTexts texts;
  for (std::string& text : texts) {
    auto measurement = takeMeasurement(value);
    if (!measurement) return {};
    text = *std::move(measurement);
  }
  return value.empty() ? texts : AreaTexts();
}

std::vector<CardArea> areasOf(const host::JobOptions& job, const AreaSide& side) {
  std::vector<CardArea> areas;
  addAreas(areas, job, side.include, true);
  addAreas(areas, job, side.exclude, false);
  return areas;
}

std::vector<CardArea> areasOf(const host::JobOptions& job, const AreaSide& side,
                              const TypedTexts& typed) {
  auto areas = areasOf(job, side);
  for (CardArea& area : areas) {
    const auto texts = typed.find(area.key);
    if (texts != typed.end()) area.texts = texts->second;
  }
  return areas;
}

std::optional<AreaField> areaFieldOf(std::string_view outlet) {
  for (const AreaSide& side : kSides) {
    for (const AreaKind& kind : {side.include, side.exclude}) {
      if (auto field = fieldOfKind(kind, outlet)) return field;
    }
  }
  return std::nullopt;
}

}  // namespace cardpanels::dialog
