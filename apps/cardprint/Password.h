#pragma once

#include <optional>

#include "host/Terms.h"

namespace cardpanels::cardprint {

/// Whether there is a person at a terminal to ask.
bool isAtTerminal();

/// Asks the person at the terminal for the password that is `needed`. Nothing when they give none.
std::optional<host::Login> askedLogin(const host::PasswordNeeded& needed);

/// What `ask` answers with `login`, which is asked for at the terminal when `mayAsk` and a print
/// server needs one. Throws what `ask` throws.
template <typename Ask>
auto withLogin(std::optional<host::Login>& login, bool mayAsk, const Ask& ask) {
  constexpr int kMostQuestions = 3;
  for (int asked = 0;; ++asked) {
    try {
      return ask(login);
    } catch (const host::PasswordNeeded& needed) {
      if (!mayAsk || !isAtTerminal() || asked == kMostQuestions) throw;
      login = askedLogin(needed);
      if (!login) throw;
    }
  }
}

}  // namespace cardpanels::cardprint
