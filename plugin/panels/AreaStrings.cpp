#include "plugin/panels/AreaStrings.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string_view>

#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "plugin/log/PDELogging.h"

namespace cardpanels {
namespace {

using platform::isDigit;
using platform::kCustomPrefix;
using platform::startsIgnoringCase;

// One measurement of at most 20 characters and its NUL.
constexpr std::size_t kPartSize = 21;
constexpr std::size_t kParts = 4;

char szArea[85];
char szToken[kParts * kPartSize];

bool isEmpty(const char* part) { return part == nullptr || *part == '\0'; }

bool fitsPart(const char* part) { return strnlen(part, kPartSize) < kPartSize; }

void skip(std::string_view& text, std::string_view characters) {
  text.remove_prefix(std::min(text.find_first_not_of(characters), text.size()));
}

/// Takes the number that `text` starts with: digits and at most one point. Empty for none.
std::string_view takeNumber(std::string_view& text) {
  std::size_t length = 0;
  bool hasPoint = false;
  for (; length < text.size(); ++length) {
    const bool isPoint = text[length] == '.';
    if (isPoint ? hasPoint : !isDigit(text[length])) break;
    hasPoint = hasPoint || isPoint;
  }
  const std::string_view number = text.substr(0, length);
  text.remove_prefix(length);
  return number;
}

/// Takes the unit that `text` starts with. Where the next number follows at once the unit is `px`,
/// at the end there is none; nothing when what follows is no unit.
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

/// Takes a measurement and the spaces around it into `slot`.
bool takeMeasurement(std::string_view& text, char* slot) {
  skip(text, " +-");
  const std::string_view number = takeNumber(text);
  if (number.empty()) return false;
  skip(text, " ");
  const auto unit = takeUnit(text);
  if (!unit || number.size() + unit->size() >= kPartSize) return false;
  slot[number.copy(slot, number.size()) + unit->copy(slot + number.size(), unit->size())] = '\0';
  skip(text, " ");
  return true;
}

/// Fills the four slots from the whole of `text`; false when it is no area.
bool takeArea(std::string_view text) {
  if (startsIgnoringCase(text, kCustomPrefix)) text.remove_prefix(kCustomPrefix.size());
  for (std::size_t k = 0; k < kParts; ++k) {
    if (!takeMeasurement(text, &szToken[k * kPartSize])) return false;
  }
  return text.empty();
}

}  // namespace

const char* formatArea(const char* x, const char* y, const char* width, const char* height) {
  _PDEProlog(nullptr, "formatArea: (%s)(%s)(%s)(%s)", x, y, width, height);
  std::memset(szArea, 0, sizeof szArea);
  bool allEmpty = true;
  bool allFit = true;
  const char* parts[kParts] = {x, y, width, height};
  for (const char*& part : parts) {
    if (isEmpty(part)) {
      part = "0px";
    } else {
      allEmpty = false;
      allFit = allFit && fitsPart(part);
    }
  }
  if (!allEmpty && allFit) {
    char* end = szArea;
    for (const std::string_view part : parts) {
      if (end != szArea) *end++ = ' ';
      end = std::copy(part.begin(), part.end(), end);
    }
  }
  _PDEEpilog(nullptr, "formatArea: (%s)", szArea);
  return szArea;
}

void parseArea(const char* area, const char*& x, const char*& y, const char*& width,
               const char*& height) {
  _PDEProlog(nullptr, "parseArea:");
  std::memset(szToken, 0, sizeof szToken);
  if (area != nullptr && !takeArea(area)) std::memset(szToken, 0, sizeof szToken);
  x = &szToken[0];
  y = &szToken[kPartSize];
  width = &szToken[2 * kPartSize];
  height = &szToken[3 * kPartSize];
  _PDEEpilog(nullptr, "parseArea: (%s)(%s)(%s)(%s)", x, y, width, height);
}

}  // namespace cardpanels
