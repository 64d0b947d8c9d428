#include "apps/cardprint/Password.h"

#include <termios.h>
#include <unistd.h>

#include <iostream>
#include <string>

#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::cardprint {
namespace {

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

}  // namespace

bool isAtTerminal() { return isatty(STDIN_FILENO) != 0 && isatty(STDERR_FILENO) != 0; }

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

}  // namespace cardpanels::cardprint
