#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace cardpanels::host {

/// Whether `text` is a measurement: a decimal number without sign, with at most one point and with
/// or without a unit behind it (`in`, `cm`, `mm` or `px` in any case, or the inch mark `"`). Spaces
/// may stand around both.
bool isMeasurement(std::string_view text);

/// The measurement `text` in points (1/72 inch). `px`, as well as a number without a unit, counts
/// dots of the printer. Nothing for what is no measurement, or is too large for a `double`.
std::optional<double> pointsIn(std::string_view text, double dotsPerInch);

/// The unit of the measurement `text` as it is written there, "" for none.
std::string unitOf(std::string_view text);

}  // namespace cardpanels::host
