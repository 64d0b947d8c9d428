#include "tests/support/BuiltFiles.h"

namespace cardpanels::test {

std::string builtBundle() { return CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle"; }

std::string duplexPPD() { return CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd"; }

}  // namespace cardpanels::test
