#include "apps/cardprint/LpLetters.h"

#include <array>
#include <charconv>
#include <limits>
#include <regex>

#include "host/Program.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kMostPriority = 100;

[[noreturn]] void failAt(char letter, const std::string& value, const char* reason) {
  throw host::UsageError(std::string("-") + letter + " " + value + ": " + reason);
}

bool isNumberUpTo(int most, const std::string& value) {
  int number = 0;
  const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
  return error == std::errc() && end == value.data() + value.size() && number >= 1 &&
         number <= most;
}

bool matches(const std::string& value, const char* pattern) {
  return std::regex_match(value, std::regex(pattern));
}

std::vector<host::Option> holding(const std::string& value) {
  const std::string kHold = "job-hold-until";
  if (value == "hold") return {{kHold, "indefinite"}};
  if (value == "immediate") return {{kHold, "no-hold"}, {"job-priority", "100"}};
  constexpr const char* kTimes =
      "no-hold|indefinite|day-time|evening|night|second-shift|third-shift|weekend|"
      "([01]?[0-9]|2[0-3]):[0-5]?[0-9](:[0-5]?[0-9])?";
  if (!matches(value, kTimes)) failAt('H', value, _("This is not hold, immediate or HH:MM."));
  return {{kHold, value}};
}

}  // namespace

std::vector<host::Option> optionsOfLetter(char letter, const std::string& value) {
  switch (letter) {
    case 'n':
      if (!isNumberUpTo(std::numeric_limits<int>::max(), value))
        failAt(letter, value, _("This is no number of copies."));
      return {{"copies", value}};
    case 'q':
      if (!isNumberUpTo(kMostPriority, value))
        failAt(letter, value, _("A priority is a number from 1 to 100."));
      return {{"job-priority", value}};
    case 'P': {
      constexpr const char* kRange = "([0-9]+(-[0-9]*)?|-[0-9]+)";
      if (!matches(value, (std::string(kRange) + "(," + kRange + ")*").c_str()))
        failAt(letter, value, _("Pages are numbers and ranges, such as 1,3-5."));
      return {{"page-ranges", value}};
    }
    case 'H': return holding(value);
    default: return {{"job-name", value}};
  }
}

}  // namespace cardpanels::cardprint
