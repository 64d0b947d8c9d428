#pragma once

#include "platform/View.h"

namespace cardpanels::platform {

/// Pages one behind the other, chosen by tabs.
class TabView : public View {
 public:
  ~TabView() override;
};

}  // namespace cardpanels::platform
