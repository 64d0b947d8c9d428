#include "dialog/Measurement.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "platform/ASCII.h"

namespace cardpanels::dialog {
namespace {

constexpr std::array<std::string_view, 6> kUnits{"", "\"", "in", "cm", "mm", "px"};

std::string_view withoutSpacesAround(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isNumber(std::string_view text) {
  return std::any_of(text.begin(), text.end(), platform::isDigit) &&
         std::count(text.begin(), text.end(), '.') <= 1;
}

}  // namespace

bool isMeasurement(std::string_view text) {
  text = withoutSpacesAround(text);
  const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
  const std::string_view unit = withoutSpacesAround(text.substr(end));
  return isNumber(text.substr(0, end)) &&
         std::any_of(kUnits.begin(), kUnits.end(), [&](std::string_view each) {
           return platform::equalIgnoringCase(unit, each);
         });
}

}  // namespace cardpanels::dialog
