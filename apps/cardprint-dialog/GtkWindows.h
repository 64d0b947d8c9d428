#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apps/cardprint-dialog/WindowWaiter.h"
#include "apps/cardprint/Windows.h"

namespace cardpanels::cardprint {

class CardDialog;

/// The windows over GTK.
class GtkWindows final : public Windows {
 public:
  /// Initialises GTK. Throws `host::Error` without a display.
  GtkWindows();
  ~GtkWindows() override;

  WindowWaiter& waiter() override { return waiter_; }
  std::shared_ptr<platform::Bundle> bundle(const std::string& path,
                                           const host::JobOptions& job) override;
  Choice choose(DialogJob& job, const std::string& told) override;
  void tellError(const std::string& message) override;
  void follow(const std::string& queue, const std::vector<int>& ids) override;

 private:
  Choice chosen(DialogJob& job, const std::string& told);

  WindowWaiter waiter_;
  std::unique_ptr<CardDialog> dialog_;  // while it stays for another job
};

}  // namespace cardpanels::cardprint
