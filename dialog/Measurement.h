#pragma once

#include <string_view>

namespace cardpanels::dialog {

/// Whether `text` is a measurement: a decimal number without sign, with at most one point and with
/// or without a unit behind it (`in`, `cm`, `mm` or `px` in any case, or the inch mark `"`). Spaces
/// may stand around both.
bool isMeasurement(std::string_view text);

}  // namespace cardpanels::dialog
