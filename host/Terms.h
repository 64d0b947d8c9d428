#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host/Error.h"

namespace cardpanels::host {

class KeptConnection;

/// Who a print server that asks for a password is told to be there.
struct Login {
  std::string user;
  std::string password;
};

/// On what terms a print server is asked.
struct Terms {
  int seconds = 10;  // until the question ends at the latest, whatever the server does
  const std::atomic<bool>* abandoned = nullptr;  // ends it soon once true; nothing for never
  std::optional<Login> login = {};               // for a server that asks for a password
  std::shared_ptr<KeptConnection> kept = {};     // to go on over, and to leave; null for neither
};

/// The print server asks for a password and got none, or not the right one. A caller may ask the
/// user, and the server again with a login.
class PasswordNeeded : public Error {
 public:
  PasswordNeeded(const std::string& message, std::string server, std::string user, bool refused)
      : Error(message), server_(std::move(server)), user_(std::move(user)), refused_(refused) {}

  const std::string& server() const { return server_; }
  /// Whose password it is.
  const std::string& user() const { return user_; }
  /// Whether a password was given, and was the wrong one.
  bool refused() const { return refused_; }

 private:
  std::string server_;
  std::string user_;
  bool refused_;
};

}  // namespace cardpanels::host
