#include "apps/cardprint/OptionArgument.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "host/Error.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

constexpr std::string_view kBlanks = " \t\n\r\v\f";
constexpr std::string_view kKeyEnds = " \t\n\r\v\f\"'=";

[[noreturn]] void failAt(const std::string& argument) {
  throw host::Error("-o " + argument + ": " + platform::_("This is not KEY=VALUE."));
}

/// What the word `key` alone asks for.
host::Option switched(const std::string& key) {
  const bool isOff = key.size() > 2 && platform::startsIgnoringCase(key, "no");
  return isOff ? host::Option{key.substr(2), "false"} : host::Option{key, "true"};
}

/// Whether the word that `text` starts with is a number, as in areas, and no option of its own.
bool continuesValue(std::string_view text) {
  const std::size_t end = text.find_first_of(kKeyEnds);
  if (end != std::string_view::npos && text[end] == '=') return false;
  const std::size_t digit = text.find_first_not_of("+-.,");
  return digit != std::string_view::npos && platform::isDigit(text[digit]);
}

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
  void skipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
  }

  host::Option readOption() {
    const std::size_t end = rest_.find_first_of(kKeyEnds);
    const std::string key(rest_.substr(0, end));
    rest_.remove_prefix(key.size());
    const char next = rest_.empty() ? ' ' : rest_.front();
    if (key.empty() || next == '"' || next == '\'') failAt(argument_);
    if (next != '=') return switched(key);
    rest_.remove_prefix(1);
    return {key, readValue()};
  }

  std::string readValue() {
    const char first = rest_.empty() ? ' ' : rest_.front();
    std::string value = first == '"' || first == '\'' ? readQuoted()
                        : first == '{'                ? readBraces()
                                                      : readPlain();
    if (!rest_.empty() && !platform::isBlank(rest_.front())) failAt(argument_);
    return value;
  }

  char takenCharacter() {
    if (rest_.size() > 1 && rest_.front() == '\\') rest_.remove_prefix(1);
    const char character = rest_.front();
    rest_.remove_prefix(1);
    return character;
  }

  std::string readQuoted() {
    const char quote = takenCharacter();
    std::string value;
    while (!rest_.empty() && rest_.front() != quote) value += takenCharacter();
    if (rest_.empty()) failAt(argument_);
    rest_.remove_prefix(1);
    return value;
  }

  std::string readBraces() {
    std::string value;
    for (int depth = 0; !rest_.empty();) {
      depth += rest_.front() == '{' ? 1 : rest_.front() == '}' ? -1 : 0;
      value += takenCharacter();
      if (depth == 0) return value;
    }
    failAt(argument_);
  }

  std::string readPlain() {
    std::string value;
    while (!rest_.empty()) {
      const std::size_t blanks = std::min(rest_.find_first_not_of(kBlanks), rest_.size());
      if (blanks > 0 && (value.empty() || !continuesValue(rest_.substr(blanks)))) break;
      value += rest_.substr(0, blanks);
      rest_.remove_prefix(blanks);
      value += takenCharacter();
    }
    return value;
  }

  const std::string& argument_;
  std::string_view rest_;
};

}  // namespace

std::vector<host::Option> parseOptionArgument(const std::string& argument) {
  return Reader(argument).run();
}

host::Option parseOption(const std::string& word) {
  const std::size_t end = word.find('=');
  if (word.empty() || end == 0) failAt(word);
  return end == std::string::npos ? switched(word)
                                  : host::Option{word.substr(0, end), word.substr(end + 1)};
}

}  // namespace cardpanels::cardprint
