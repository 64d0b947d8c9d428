#pragma once

#include <algorithm>
#include <string>

#include "host/Measurement.h"

namespace cardpanels::dialog {

using host::isMeasurement;
using host::pointsIn;

/// What a user means who types a decimal comma: `text` with a point for each comma, `1.5cm` for
/// `1,5cm`. `1,000,5` becomes `1.000.5`, which is no measurement either.
inline std::string withDecimalPoint(std::string text) {
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

}  // namespace cardpanels::dialog
