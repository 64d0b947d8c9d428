#pragma once

#include <optional>

#include "apps/cardprint/Waiter.h"

namespace cardpanels::cardprint {

/// Waits as a command does, and asks the person at the terminal for a password, if there is one.
class TerminalWaiter final : public Waiter {
 public:
  void wait(const std::string& what, Work work) override;

 private:
  std::optional<host::Login> login_;
};

}  // namespace cardpanels::cardprint
