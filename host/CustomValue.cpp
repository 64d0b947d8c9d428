#include "host/CustomValue.h"

#include <cups/cups.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "host/Error.h"
#include "host/JobOption.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;
using platform::kCustomPrefix;
using platform::startsIgnoringCase;

constexpr float kPointTolerance = 0.01F;  // 54mm is not exactly representable in points

template <typename Number>
std::string numberText(Number number) {
  std::array<char, 64> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
  return {digits.data(), end};
}

/// All of `text` as a number, written as in a PPD whatever the locale.
template <typename Number>
std::optional<Number> numberIn(std::string_view text) {
  if (text.substr(0, 1) == "+" && text.substr(1, 1) != "-") text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  if constexpr (std::is_floating_point_v<Number>) {
    if (!std::isfinite(number)) return std::nullopt;
  }
  return number;
}

/// Points in `unit`; nothing for a unit that libcups does not know.
std::optional<double> pointsIn(std::string_view unit) {
  constexpr std::array<std::pair<std::string_view, double>, 7> units = {{{"", 1.0},
                                                                         {"pt", 1.0},
                                                                         {"in", 72.0},
                                                                         {"ft", 12.0 * 72.0},
                                                                         {"cm", 72.0 / 2.54},
                                                                         {"mm", 72.0 / 25.4},
                                                                         {"m", 72.0 / 0.0254}}};
  for (const auto& [name, points] : units) {
    if (equalIgnoringCase(name, unit)) return points;
  }
  return std::nullopt;
}

std::optional<double> measureIn(std::string_view text) {
  const std::size_t last = text.find_last_of("0123456789.");
  if (last == std::string_view::npos) return std::nullopt;
  const auto number = numberIn<double>(text.substr(0, last + 1));
  const auto factor = pointsIn(text.substr(last + 1));
  if (!number || !factor) return std::nullopt;
  return *number * *factor;
}

bool hasControlCharacter(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

/// Checks one parameter's value and says what it must be when it is not.
class ParameterCheck {
 public:
  ParameterCheck(std::string title, const ppd_cparam_t& parameter, std::string_view value)
      : title_(std::move(title)), parameter_(parameter), value_(value) {}

  void run() const {
    switch (parameter_.type) {
      case PPD_CUSTOM_INT: return checkInteger();
      case PPD_CUSTOM_CURVE:
      case PPD_CUSTOM_INVCURVE:
      case PPD_CUSTOM_REAL:
        return checkReal(numberIn<float>(value_), _("“{option}” must be a number from {minimum} to "
                                                    "{maximum}, not “{value}”."));
      case PPD_CUSTOM_POINTS: return checkPoints();
      case PPD_CUSTOM_PASSCODE:
        return checkLength(isDigits(), parameter_.minimum.custom_passcode,
                           parameter_.maximum.custom_passcode,
                           _("“{option}” must have {minimum} to {maximum} digits."));
      case PPD_CUSTOM_PASSWORD:
        return checkLength(isText(), parameter_.minimum.custom_password,
                           parameter_.maximum.custom_password,
                           _("“{option}” must have {minimum} to {maximum} characters."));
      case PPD_CUSTOM_STRING:
        return checkLength(isText(), parameter_.minimum.custom_string,
                           parameter_.maximum.custom_string,
                           _("“{option}” must have {minimum} to {maximum} bytes of text on one "
                             "line, not “{value}”."));
      case PPD_CUSTOM_UNKNOWN: break;
    }
    throw Error(filled(_("“{option}” takes no value of one's own."), {{"option", title_}}));
  }

 private:
  [[noreturn]] void fail(const char* message, const std::string& minimum,
                         const std::string& maximum) const {
    throw Error(filled(message, {{"option", title_},
                                 {"minimum", minimum},
                                 {"maximum", maximum},
                                 {"value", platform::onOneLine(std::string(value_))}}));
  }

  void checkInteger() const {
    const int minimum = parameter_.minimum.custom_int;
    const int maximum = parameter_.maximum.custom_int;
    const auto number = numberIn<int>(value_);
    if (number && *number >= minimum && *number <= maximum) return;
    fail(_("“{option}” must be a whole number from {minimum} to {maximum}, not “{value}”."),
         numberText(minimum), numberText(maximum));
  }

  void checkReal(std::optional<float> number, const char* message) const {
    const float minimum = parameter_.minimum.custom_real;
    const float maximum = parameter_.maximum.custom_real;
    if (number && *number >= minimum && *number <= maximum) return;
    fail(message, numberText(minimum), numberText(maximum));
  }

  void checkPoints() const {
    const float minimum = parameter_.minimum.custom_points;
    const float maximum = parameter_.maximum.custom_points;
    const auto points = measureIn(value_);
    if (points && *points >= minimum - kPointTolerance && *points <= maximum + kPointTolerance) {
      return;
    }
    fail(_("“{option}” must be a length from {minimum} to {maximum} points (units: pt, in, ft, cm, "
           "mm, m), not “{value}”."),
         numberText(minimum), numberText(maximum));
  }

  void checkLength(bool isOfType, int minimum, int maximum, const char* message) const {
    const bool fits = std::cmp_greater_equal(value_.size(), minimum) &&
                      std::cmp_less_equal(value_.size(), maximum);
    if (!isOfType || !fits) fail(message, numberText(minimum), numberText(maximum));
  }

  bool isDigits() const { return value_.find_first_not_of("0123456789") == std::string_view::npos; }

  /// A line end or another control character would end the line that the value stands in.
  bool isText() const { return platform::isUTF8(value_) && !hasControlCharacter(value_); }

  std::string title_;
  const ppd_cparam_t& parameter_;
  std::string_view value_;
};

std::string withoutPrefix(std::string_view text) {
  if (startsIgnoringCase(text, kCustomPrefix)) text.remove_prefix(kCustomPrefix.size());
  return std::string(text);
}

std::string checkedPageSize(ppd_file_t* ppd, const ppd_option_t& option, const std::string& value) {
  ppd_size_t minimum{};
  ppd_size_t maximum{};
  ppdPageSizeLimits(ppd, &minimum, &maximum);
  const std::size_t cross = value.find('x');
  const std::string_view height = std::string_view(value).substr(std::min(cross + 1, value.size()));
  const std::size_t unit = height.find_last_of("0123456789.") + 1;
  const auto measure = [&](std::string_view number) {
    return measureIn(std::string(number) + std::string(height.substr(unit)));
  };
  const auto fits = [](std::optional<double> points, float least, float most) {
    return points && *points >= least - kPointTolerance && *points <= most + kPointTolerance;
  };
  if (cross == std::string::npos ||
      !fits(measure(std::string_view(value).substr(0, cross)), minimum.width, maximum.width) ||
      !fits(measure(height.substr(0, unit)), minimum.length, maximum.length)) {
    throw Error(filled(_("“{option}” must be a width and a length such as Custom.54x85.6mm, from "
                         "{minimum} to {maximum} points, not “{value}”."),
                       {{"option", titleOf(option)},
                        {"minimum", numberText(minimum.width) + "x" + numberText(minimum.length)},
                        {"maximum", numberText(maximum.width) + "x" + numberText(maximum.length)},
                        {"value", platform::onOneLine(value)}}));
  }
  return std::string(kCustomPrefix) + value;
}

bool isInBraces(std::string_view text) {
  return text.size() >= 2 && text.front() == '{' && text.back() == '}';
}

/// A member's value inside braces, as cupsParseOptions reads it back.
std::string inBraces(std::string_view value) {
  const bool plain = !value.empty() && value.find_first_of(" \"'\\,{}=") == std::string_view::npos;
  return plain ? std::string(value) : platform::inQuotes(value);
}

/// Checks one of several values. Throws `Error`.
void checkMember(const ppd_option_t& option, const ppd_cparam_t& parameter,
                 const std::string& value) {
  const std::string title = std::string(titleOf(option)) + ": " + parameter.text;
  ParameterCheck(title, parameter, value).run();
  if (value.find_first_of("{}") != std::string::npos) {  // libcups counts them, even quoted
    throw Error(filled(_("“{option}” cannot hold braces."), {{"option", title}}));
  }
}

std::string ofMembers(const std::vector<ppd_cparam_t*>& parameters,
                      const std::vector<std::string>& values) {
  std::string text;
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    text += text.empty() ? "{" : " ";
    text += std::string(parameters[i]->name) + "=" + inBraces(values[i]);
  }
  return text + "}";
}

std::string checkedMembers(const ppd_option_t& option, const std::vector<ppd_cparam_t*>& parameters,
                           const std::string& value) {
  if (!isInBraces(value)) {
    throw Error(filled(_("“{option}” takes several values: write them as {Name=value Name=value}."),
                       {{"option", titleOf(option)}}));
  }
  const OptionList members = OptionList::parsed(value);
  for (const Option& member : members.options()) {
    const bool known =
        std::any_of(parameters.begin(), parameters.end(), [&](const ppd_cparam_t* parameter) {
          return equalIgnoringCase(parameter->name, member.key);
        });
    if (known) continue;
    throw Error(filled(_("“{option}” has no value of the name {name}."),
                       {{"option", titleOf(option)}, {"name", platform::onOneLine(member.key)}}));
  }
  std::vector<std::string> values;
  for (const ppd_cparam_t* parameter : parameters) {
    const auto member = members.value(parameter->name);
    if (!member) {
      throw Error(filled(_("“{option}” needs a value of the name {name}."),
                         {{"option", titleOf(option)}, {"name", parameter->name}}));
    }
    checkMember(option, *parameter, *member);
    values.push_back(*member);
  }
  return ofMembers(parameters, values);
}

/// The value in `{Name=value}` when `text` is that for the only parameter; else `text`.
std::string withoutBraces(const std::string& text, const ppd_cparam_t& parameter) {
  if (!isInBraces(text)) return text;
  const OptionList members = OptionList::parsed(text);
  const auto value = members.value(parameter.name);
  return value && members.options().size() == 1 ? *value : text;
}

}  // namespace

bool isCustomText(std::string_view text) {
  return startsIgnoringCase(text, kCustomPrefix) || text.substr(0, 1) == "{";
}

std::string checkedCustomValue(ppd_file_t* ppd, const ppd_option_t& option, std::string_view text) {
  const auto parameters = parametersOf(ppd, option);
  if (parameters.empty()) {
    throw Error(
        filled(_("“{option}” takes no value of one's own."), {{"option", titleOf(option)}}));
  }
  const std::string value = withoutPrefix(text);
  if (equalIgnoringCase(option.keyword, "PageSize")) return checkedPageSize(ppd, option, value);
  if (parameters.size() > 1) return checkedMembers(option, parameters, value);
  const std::string only = withoutBraces(value, *parameters.front());
  ParameterCheck(titleOf(option), *parameters.front(), only).run();
  return std::string(kCustomPrefix) + only;
}

std::string parameterFault(ppd_file_t* ppd, const ppd_option_t& option,
                           const ppd_cparam_t& parameter, const std::string& value) {
  try {
    if (parameterCount(ppd, option) > 1) {
      checkMember(option, parameter, value);
    } else {
      ParameterCheck(titleOf(option), parameter, value).run();
    }
    return "";
  } catch (const Error& error) {
    return error.what();
  }
}

std::string customValueOf(ppd_file_t* ppd, const ppd_option_t& option,
                          const std::vector<std::string>& values) {
  const auto parameters = parametersOf(ppd, option);
  return parameters.size() > 1 ? ofMembers(parameters, values)
                               : std::string(kCustomPrefix) + values.front();
}

std::vector<std::string> parameterValues(ppd_file_t* ppd, const ppd_option_t& option,
                                         const std::string& custom) {
  const auto parameters = parametersOf(ppd, option);
  if (parameters.size() == 1) return {withoutPrefix(custom)};
  const OptionList members = OptionList::parsed(custom);
  std::vector<std::string> values;
  values.reserve(parameters.size());
  for (const ppd_cparam_t* each : parameters)
    values.push_back(members.value(each->name).value_or(""));
  return values;
}

}  // namespace cardpanels::host
