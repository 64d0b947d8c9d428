#pragma once

#include <string>

/// What was built, and what lies in the checkout.
namespace cardpanels::test {

inline const std::string kBundle = CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle";

/// The PPD of a printer for both sides with everything.
inline const std::string kDuplexPPD = CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd";

}  // namespace cardpanels::test
