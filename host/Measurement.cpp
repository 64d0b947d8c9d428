#include "host/Measurement.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "platform/ASCII.h"

namespace cardpanels::host {
namespace {

/// The points of a unit; 0 stands for a dot of the printer.
struct Unit {
  std::string_view name;
  double points;
};

constexpr double kDot = 0;
constexpr std::array<Unit, 6> kUnits{
    {{"", kDot}, {"\"", 72}, {"in", 72}, {"cm", 72 / 2.54}, {"mm", 72 / 25.4}, {"px", kDot}}};

struct Measurement {
  std::string_view number;
  double pointsOfUnit;
};

std::string_view withoutSpacesAround(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isNumber(std::string_view text) {
  return std::any_of(text.begin(), text.end(), platform::isDigit) &&
         std::count(text.begin(), text.end(), '.') <= 1;
}

std::optional<Measurement> measurementIn(std::string_view text) {
  text = withoutSpacesAround(text);
  const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
  const std::string_view name = withoutSpacesAround(text.substr(end));
  const auto* const unit = std::find_if(kUnits.begin(), kUnits.end(), [&](const Unit& each) {
    return platform::equalIgnoringCase(name, each.name);
  });
  if (unit == kUnits.end() || !isNumber(text.substr(0, end))) return std::nullopt;
  return Measurement{text.substr(0, end), unit->points};
}

}  // namespace

bool isMeasurement(std::string_view text) { return measurementIn(text).has_value(); }

std::optional<double> pointsIn(std::string_view text, double dotsPerInch) {
  const auto measurement = measurementIn(text);
  if (!measurement) return std::nullopt;
  const auto [digits, unit] = *measurement;
  double number = 0;
  const auto error = std::from_chars(digits.data(), digits.data() + digits.size(), number).ec;
  const double points = number * (unit == kDot ? 72 / dotsPerInch : unit);
  if (error != std::errc() || !std::isfinite(points)) return std::nullopt;
  return points;
}

std::string unitOf(std::string_view text) {
  text = withoutSpacesAround(text);
  const std::size_t end = std::min(text.find_first_not_of("0123456789."), text.size());
  return std::string(withoutSpacesAround(text.substr(end)));
}

}  // namespace cardpanels::host
