#pragma once

#include <algorithm>
#include <utility>

namespace cardpanels::dialog {

/// How wide a window becomes for panels, which come one by one as the user goes to them.
class PanelWidth {
 public:
  /// Answers the pixels that a page of `width` lacks for panels that would like `natural`; 0 when
  /// there is room, or when the user made less of it than the panels before would have liked.
  int missing(int natural, int width) {
    const bool isNarrowed = width < std::exchange(natural_, natural);
    return isNarrowed ? 0 : std::max(natural - width, 0);
  }

 private:
  int natural_ = 0;  // of the panels before
};

}  // namespace cardpanels::dialog
