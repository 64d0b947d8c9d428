#pragma once

#include <memory>
#include <optional>

#include "apps/cardprint/Waiter.h"
#include "host/KeptConnection.h"

namespace cardpanels::cardprint {

/// Waits as a command does, over one connection to the print server, and asks the person at the
/// terminal for a password, if there is one.
class TerminalWaiter final : public Waiter {
 public:
  void wait(const std::string& what, Work work) override;

 private:
  std::optional<host::Login> login_;
  const std::shared_ptr<host::KeptConnection> kept_ = std::make_shared<host::KeptConnection>();
};

}  // namespace cardpanels::cardprint
