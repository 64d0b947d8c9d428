#pragma once

#include <cups/cups.h>

#include <string>
#include <vector>

#include "platform/Text.h"

namespace cardpanels::host {

/// An option and its value, as a job carries them.
struct Option {
  std::string key;
  std::string value;
  bool operator==(const Option&) const = default;
};

/// Owns libcups' list of options, in which each name, whatever its case, stands once.
class OptionList {
 public:
  OptionList() = default;
  /// A later option of a name takes the place of an earlier one.
  explicit OptionList(const std::vector<Option>& options);
  OptionList(const OptionList&) = delete;
  OptionList& operator=(const OptionList&) = delete;
  OptionList(OptionList&& other) noexcept;
  OptionList& operator=(OptionList&&) = delete;
  ~OptionList();

  /// What cupsParseOptions makes of `text`.
  static OptionList parsed(const std::string& text);

  /// Adds `option`, in place of an earlier one of that name.
  void set(const Option& option);

  /// Takes the option of that name, in whatever case, out; does nothing when there is none.
  void remove(const std::string& key);

  /// The value of `key`, or nothing.
  platform::Text value(const std::string& key) const;

  /// All of the list, in its order.
  std::vector<Option> options() const;

  /// For libcups' functions, which change both.
  int count = 0;
  cups_option_t* list = nullptr;
};

}  // namespace cardpanels::host
