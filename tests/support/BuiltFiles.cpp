#include "tests/support/BuiltFiles.h"

namespace cardpanels::test {

std::string builtBundle() { return CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle"; }

std::string cardprintCommand() {
  return "env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C.UTF-8 " CARDPANELS_BUILD_DIR
         "/bin/cardprint --no-dialog ";
}

std::string duplexPPD() { return CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd"; }

}  // namespace cardpanels::test
