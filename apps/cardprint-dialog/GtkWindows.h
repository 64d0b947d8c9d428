#pragma once

#include <memory>
#include <string>

#include "apps/cardprint-dialog/WindowWaiter.h"
#include "apps/cardprint/Windows.h"

namespace cardpanels::cardprint {

/// The windows over GTK.
class GtkWindows final : public Windows {
 public:
  /// Initialises GTK. Throws `host::Error` without a display.
  GtkWindows();

  WindowWaiter& waiter() override { return waiter_; }
  std::shared_ptr<platform::Bundle> bundle(const std::string& path,
                                           const host::JobOptions& job) override;
  Choice choose(DialogJob& job, const std::string& told) override;

 private:
  WindowWaiter waiter_;
};

}  // namespace cardpanels::cardprint
