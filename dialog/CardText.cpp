#include "dialog/CardText.h"

#include <langinfo.h>

#include <array>
#include <charconv>
#include <clocale>
#include <limits>

#include "dialog/CardAreas.h"
#include "host/CardGeometry.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::filled;

constexpr double kPointsPerInch = 72;
constexpr double kPointsPerMillimeter = 72 / 25.4;

/// The same with the locale's decimal point.
std::string numberText(double number, int decimals) {
  std::string text = decimalText(number, decimals);
  const std::size_t point = text.find('.');
  if (point != std::string::npos) text.replace(point, 1, std::localeconv()->decimal_point);
  return text;
}

/// A length as a number of the unit that the locale measures in, to 0.1 mm or 0.001 in, or finer.
std::string numberOfUnits(double points, int moreDecimals = 0) {
  return measuresInInches() ? numberText(points / kPointsPerInch, 3 + moreDecimals)
                            : numberText(points / kPointsPerMillimeter, 1 + moreDecimals);
}

std::string withUnit(const std::string& number) {
  return filled(measuresInInches() ? _("{length} in") : _("{length} mm"), {{"length", number}});
}

/// The length of one dot, to two decimals more.
std::string dotText(double dotsPerInch) {
  return withUnit(numberOfUnits(kPointsPerInch / dotsPerInch, 2));
}

}  // namespace

bool measuresInInches() {
  constexpr char kUnitedStates = 2;
  return *nl_langinfo(_NL_MEASUREMENT_MEASUREMENT) == kUnitedStates;
}

std::string decimalText(double number, int decimals) {
  std::array<char, std::numeric_limits<double>::max_exponent10 + 16> digits{};
  char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                  std::chars_format::fixed, decimals)
                        .ptr;
  std::string text(digits.data(), end);
  const std::size_t point = text.find('.');
  if (point == std::string::npos) return text;
  text.erase(text.find_last_not_of('0') + 1);
  if (text.size() == point + 1) text.pop_back();
  return text;
}

std::string lengthText(double points) { return withUnit(numberOfUnits(points)); }

std::string cardSizeText(const host::CardGeometry& card) {
  if (!card.hasSize()) return {};
  return filled(measuresInInches() ? _("{width} × {height} in") : _("{width} × {height} mm"),
                {{"width", numberOfUnits(card.width)}, {"height", numberOfUnits(card.height)}});
}

std::string sizeInWords(double width, double height) {
  return filled(measuresInInches() ? _("{width} by {height} in") : _("{width} by {height} mm"),
                {{"width", numberOfUnits(width)}, {"height", numberOfUnits(height)}});
}

std::string unitHelp(const host::CardGeometry& card) {
  if (!card.hasResolution) return _("A number without a unit is in px, the dots of the printer.");
  if (card.dotsPerInchAcross == card.dotsPerInchDown) {
    return filled(_("A number without a unit is in px; one px is {length} on this printer."),
                  {{"length", dotText(card.dotsPerInchAcross)}});
  }
  return filled(
      _("A number without a unit is in px; one px is {width} wide and {height} high on "
        "this printer."),
      {{"width", dotText(card.dotsPerInchAcross)}, {"height", dotText(card.dotsPerInchDown)}});
}

std::string areaText(const CardArea& area) {
  if (area.isEmpty()) return {};
  const auto text = [&](AreaColumn column) -> std::string {
    return area.text(column).empty() ? "0px" : area.text(column);
  };
  return filled(area.include ? _("Includes {width} × {height} at X {x}, Y {y}")
                             : _("Excludes {width} × {height} at X {x}, Y {y}"),
                {{"width", text(AreaColumn::width)},
                 {"height", text(AreaColumn::height)},
                 {"x", text(AreaColumn::x)},
                 {"y", text(AreaColumn::y)}});
}

}  // namespace cardpanels::dialog
