#include "host/LpArguments.h"

#include "platform/Text.h"

namespace cardpanels::host {
namespace {

/// `value` as cupsParseOptions reads it back.
std::string quotedForCups(const std::string& value) {
  const bool plain =
      !value.empty() && value.find_first_of(" \t\r\n\v\f\"'\\{") == std::string::npos;
  return plain ? value : platform::inQuotes(value);
}

std::string quotedForShell(const std::string& word) {
  constexpr const char* kSafe =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./=:,+@%";
  if (word.find_first_not_of(kSafe) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char c : word) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

}  // namespace

std::string lpArguments(const std::vector<Option>& options) {
  std::string arguments;
  for (const Option& each : options) {
    if (!arguments.empty()) arguments += ' ';
    arguments += "-o " + quotedForShell(each.key + "=" + quotedForCups(each.value));
  }
  return arguments;
}

}  // namespace cardpanels::host
