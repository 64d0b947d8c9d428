#include "apps/cardprint/OptionArgument.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "host/Error.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

constexpr std::string_view kBlanks = " \t\n";

class Reader {
 public:
  explicit Reader(const std::string& argument) : argument_(argument), rest_(argument) {}

  std::vector<host::Option> run() {
    std::vector<host::Option> options;
    for (skipBlanks(); !rest_.empty() || options.empty(); skipBlanks()) {
      options.push_back(readOption());
    }
    return options;
  }

 private:
  [[noreturn]] void fail() const {
    throw host::Error("-o " + argument_ + ": " + platform::_("This is not KEY=VALUE."));
  }

  void skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
  }

  host::Option readOption() {
    const std::size_t length = keyLength(rest_);
    if (length == 0) fail();
    host::Option option{std::string(rest_.substr(0, length)), {}};
    rest_.remove_prefix(length + 1);
    const bool quoted = !rest_.empty() && (rest_.front() == '"' || rest_.front() == '\'');
    option.value = quoted ? readQuoted() : readPlain();
    return option;
  }

  /// The length of the key that `text` starts with, 0 when `KEY=` does not stand there.
  static std::size_t keyLength(std::string_view text) {
    const std::size_t end = text.find_first_of(" \t\n\"'=");
    return end != std::string_view::npos && text[end] == '=' ? end : 0;
  }

  std::string readQuoted() {
    const char quote = rest_.front();
    std::string value;
    for (std::size_t i = 1; i < rest_.size(); ++i) {
      if (rest_[i] == quote) {
        const std::string_view after = rest_.substr(i + 1);
        if (!after.empty() && kBlanks.find(after.front()) == std::string_view::npos) fail();
        rest_ = after;
        return value;
      }
      const bool escaped = rest_[i] == '\\' && i + 1 < rest_.size();
      value += rest_[escaped ? ++i : i];
    }
    fail();
  }

  std::string readPlain() {
    std::size_t end = 0;
    while ((end = rest_.find_first_of(kBlanks, end)) != std::string_view::npos) {
      const std::size_t next = std::min(rest_.find_first_not_of(kBlanks, end), rest_.size());
      if (next == rest_.size() || keyLength(rest_.substr(next)) > 0) break;
      end = next;
    }
    end = std::min(end, rest_.size());
    std::string value(rest_.substr(0, end));
    rest_.remove_prefix(end);
    return value;
  }

  const std::string& argument_;
  std::string_view rest_;
};

}  // namespace

std::vector<host::Option> parseOptionArgument(const std::string& argument) {
  return Reader(argument).run();
}

}  // namespace cardpanels::cardprint
