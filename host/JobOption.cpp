#include "host/JobOption.h"

#include <span>
#include <utility>

namespace cardpanels::host {

OptionList::OptionList(const std::vector<Option>& options) {
  for (const Option& each : options) set(each);
}

OptionList::OptionList(OptionList&& other) noexcept
    : count(std::exchange(other.count, 0)), list(std::exchange(other.list, nullptr)) {}

OptionList::~OptionList() { cupsFreeOptions(count, list); }

OptionList OptionList::parsed(const std::string& text) {
  OptionList options;
  options.count = cupsParseOptions(text.c_str(), 0, &options.list);
  return options;
}

void OptionList::set(const Option& option) {
  count = cupsAddOption(option.key.c_str(), option.value.c_str(), count, &list);
}

void OptionList::remove(const std::string& key) {
  count = cupsRemoveOption(key.c_str(), count, &list);
}

platform::Text OptionList::value(const std::string& key) const {
  const char* const found = cupsGetOption(key.c_str(), count, list);
  if (found == nullptr) return std::nullopt;
  return found;
}

std::vector<Option> OptionList::options() const {
  std::vector<Option> all;
  for (const cups_option_t& each : std::span(list, static_cast<std::size_t>(count))) {
    all.push_back({each.name, each.value});
  }
  return all;
}

}  // namespace cardpanels::host
