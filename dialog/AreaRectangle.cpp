#include "dialog/AreaRectangle.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "dialog/CardText.h"
#include "dialog/Measurement.h"
#include "dialog/MeasurementField.h"
#include "host/CardGeometry.h"

namespace cardpanels::dialog {
namespace {

constexpr int kDecimals = 2;
constexpr double kLeastOfUnit = 0.01;

double dotsPerInch(std::size_t column, const host::CardGeometry& card) {
  const bool isAcross = column == static_cast<std::size_t>(AreaColumn::x) ||
                        column == static_cast<std::size_t>(AreaColumn::width);
  return isAcross ? card.dotsPerInchAcross : card.dotsPerInchDown;
}

/// The unit in which the text of a column is written anew.
std::string unitFor(std::size_t column, const AreaTexts& texts) {
  if (isMeasurement(texts.at(column))) return host::unitOf(texts.at(column));
  const auto* const other = std::find_if(texts.begin(), texts.end(), isMeasurement);
  if (other != texts.end()) return host::unitOf(*other);
  return measuresInInches() ? "in" : "mm";
}

bool isBlank(const AreaTexts& texts) { return std::ranges::all_of(texts, &std::string::empty); }

/// One such unit in points.
double lengthOf(const std::string& unit, double resolution) {
  return host::pointsIn("1" + unit, resolution).value_or(1);
}

std::string written(double points, std::size_t column, const AreaTexts& texts,
                    const host::CardGeometry& card) {
  const double resolution = dotsPerInch(column, card);
  const std::string& text = texts.at(column);
  if (text.empty() ? points == 0 && !isBlank(texts) : host::pointsIn(text, resolution) == points) {
    return text;
  }
  const std::string unit = unitFor(column, texts);
  return decimalText(points / lengthOf(unit, resolution), kDecimals) + unit;
}

}  // namespace

std::optional<AreaRectangle> rectangleOf(const AreaTexts& texts, const host::CardGeometry& card) {
  std::array<double, 4> lengths{};
  for (std::size_t column = 0; column < lengths.size(); ++column) {
    if (texts.at(column).empty()) continue;
    const auto length = pointsIn(texts.at(column), dotsPerInch(column, card));
    if (!length) return std::nullopt;
    lengths.at(column) = *length;
  }
  if (isBlank(texts)) return std::nullopt;
  return AreaRectangle{lengths[0], lengths[1], lengths[2], lengths[3]};
}

std::optional<AreaTexts> textsOf(const AreaRectangle& rectangle, const AreaTexts& texts,
                                 const host::CardGeometry& card) {
  const std::array<double, 4> lengths{rectangle.x, rectangle.y, rectangle.width, rectangle.height};
  AreaTexts all;
  for (std::size_t column = 0; column < lengths.size(); ++column) {
    all.at(column) = written(lengths.at(column), column, texts, card);
    if (all.at(column).size() > MeasurementField::kMaximumLength) return std::nullopt;
  }
  return all;
}

double leastChange(AreaColumn column, const AreaTexts& texts, const host::CardGeometry& card) {
  const auto place = static_cast<std::size_t>(column);
  return kLeastOfUnit * lengthOf(unitFor(place, texts), dotsPerInch(place, card));
}

}  // namespace cardpanels::dialog
