#include "host/PPDRecords.h"

#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"

namespace cardpanels::host {
namespace {

using platform::equalIgnoringCase;
using platform::kCustomPrefix;
using platform::startsIgnoringCase;

template <class Record>
std::span<Record> records(Record* first, int count) {
  return {first, static_cast<std::size_t>(count)};
}

void appendOptions(std::vector<ppd_option_t*>& options, const ppd_group_t& group) {
  for (auto& option : records(group.options, group.num_options)) options.push_back(&option);
  for (const auto& each : records(group.subgroups, group.num_subgroups)) {
    appendOptions(options, each);
  }
}

}  // namespace

/// libcups compares up to a zero byte, and 40 bytes at most.
ppd_option_t* findOption(ppd_file_t* ppd, const std::string& key) {
  ppd_option_t* const option = ppdFindOption(ppd, key.c_str());
  return option != nullptr && equalIgnoringCase(option->keyword, key) ? option : nullptr;
}

std::vector<ppd_option_t*> allOptions(ppd_file_t* ppd) {
  std::vector<ppd_option_t*> options;
  for (const auto& group : records(ppd->groups, ppd->num_groups)) appendOptions(options, group);
  return options;
}

std::span<ppd_size_t> sizesOf(ppd_file_t* ppd) { return records(ppd->sizes, ppd->num_sizes); }

bool isPageSize(std::string_view keyword) {
  return equalIgnoringCase(keyword, "PageSize") || equalIgnoringCase(keyword, "PageRegion");
}

bool isPageSize(const ppd_option_t& option) { return isPageSize(option.keyword); }

std::span<ppd_choice_t> choicesOf(const ppd_option_t& option) {
  return records(option.choices, option.num_choices);
}

ppd_choice_t* listedChoice(const ppd_option_t& option, std::string_view name) {
  for (auto& choice : choicesOf(option)) {
    if (equalIgnoringCase(choice.choice, name)) return &choice;
  }
  return nullptr;
}

ppd_choice_t* customChoice(const ppd_option_t& option) { return listedChoice(option, "Custom"); }

std::vector<ppd_cparam_t*> parametersOf(ppd_file_t* ppd, const ppd_option_t& option) {
  std::vector<ppd_cparam_t*> parameters;
  ppd_coption_t* const custom = ppdFindCustomOption(ppd, option.keyword);
  if (custom == nullptr) return parameters;
  for (auto* each = ppdFirstCustomParam(custom); each != nullptr;
       each = ppdNextCustomParam(custom)) {
    parameters.push_back(each);
  }
  return parameters;
}

int parameterCount(ppd_file_t* ppd, const ppd_option_t& option) {
  const ppd_coption_t* const custom = ppdFindCustomOption(ppd, option.keyword);
  return custom == nullptr ? 0 : cupsArrayCount(custom->params);
}

const char* titleOf(const ppd_option_t& option) {
  return option.text[0] != '\0' ? option.text : option.keyword;
}

std::string titleOf(const ppd_option_t& option, std::string_view choice) {
  if (startsIgnoringCase(choice, kCustomPrefix)) {
    return std::string(choice.substr(kCustomPrefix.size()));
  }
  const ppd_choice_t* const listed = listedChoice(option, choice);
  return std::string(listed != nullptr && listed->text[0] != '\0' ? listed->text : choice);
}

}  // namespace cardpanels::host
