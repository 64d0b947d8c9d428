#include "apps/cardprint/TerminalWaiter.h"

#include <termios.h>
#include <unistd.h>

#include <iostream>
#include <string>

#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::cardprint {
namespace {

constexpr int kMostQuestions = 3;

/// What is typed meanwhile is not shown.
class HiddenTyping {
 public:
  HiddenTyping() {
    if (tcgetattr(STDIN_FILENO, &before_) != 0) return;
    termios hidden = before_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
  }
  ~HiddenTyping() { tcsetattr(STDIN_FILENO, TCSAFLUSH, &before_); }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;

 private:
  termios before_{};
};

bool isAtTerminal() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

/// The password that is `needed`, nothing when the person gives none.
std::optional<host::Login> askedLogin(const host::PasswordNeeded& needed) {
  const HiddenTyping hidden;
  std::cerr << "cardprint: " << needed.what() << '\n'
            << platform::filled(platform::_("Password of {user}: "),
                                {{"user", platform::onOneLine(needed.user())}})
            << std::flush;
  std::string password;
  std::getline(std::cin, password);
  std::cerr << '\n';
  if (password.empty()) return std::nullopt;
  return host::Login{needed.user(), password};
}

}  // namespace

void TerminalWaiter::wait(const std::string& /*what*/, Work work) {
  for (int asked = 0;; ++asked) {
    try {
      work({.login = login_, .kept = kept_});
      return;
    } catch (const host::PasswordNeeded& needed) {
      if (!isAtTerminal() || asked == kMostQuestions) throw;
      login_ = askedLogin(needed);
      if (!login_) throw;
    }
  }
}

}  // namespace cardpanels::cardprint
