#include "host/Conflicts.h"

#include <span>

#include "platform/ASCII.h"

namespace cardpanels::host {
namespace {

using platform::equalIgnoringCase;

std::span<ppd_choice_t> choicesOf(ppd_option_t& option) {
  return {option.choices, static_cast<std::size_t>(option.num_choices)};
}

std::span<ppd_size_t> sizesOf(ppd_file_t* ppd) {
  return {ppd->sizes, static_cast<std::size_t>(ppd->num_sizes)};
}

void appendOptions(std::vector<ppd_option_t*>& options, ppd_group_t& group) {
  for (auto& option : std::span(group.options, static_cast<std::size_t>(group.num_options))) {
    options.push_back(&option);
  }
  for (auto& each : std::span(group.subgroups, static_cast<std::size_t>(group.num_subgroups))) {
    appendOptions(options, each);
  }
}

}  // namespace

bool isPageSize(const ppd_option_t& option) {
  return equalIgnoringCase(option.keyword, "PageSize") ||
         equalIgnoringCase(option.keyword, "PageRegion");
}

std::vector<ppd_option_t*> allOptions(ppd_file_t* ppd) {
  std::vector<ppd_option_t*> options;
  for (auto& group : std::span(ppd->groups, static_cast<std::size_t>(ppd->num_groups))) {
    appendOptions(options, group);
  }
  return options;
}

HiddenMark::HiddenMark(ppd_file_t* ppd, ppd_option_t& option) : ppd_(ppd) {
  for (auto& choice : choicesOf(option)) {
    if (choice.marked != 0) choices_.push_back(&choice);
  }
  if (isPageSize(option)) {
    for (auto& size : sizesOf(ppd)) {
      if (size.marked != 0) sizes_.push_back(&size);
    }
  }
  clearMark(ppd, option);
}

HiddenMark::~HiddenMark() {
  for (auto* choice : choices_) {
    choice->marked = 1;
    cupsArrayAdd(ppd_->marked, choice);
  }
  for (auto* size : sizes_) size->marked = 1;
}

void clearMark(ppd_file_t* ppd, ppd_option_t& option) {
  while (auto* marked = ppdFindMarkedChoice(ppd, option.keyword)) {
    if (cupsArrayRemove(ppd->marked, marked) == 0) break;
  }
  for (auto& choice : choicesOf(option)) choice.marked = 0;
  if (!isPageSize(option)) return;
  for (auto& size : sizesOf(ppd)) size.marked = 0;
}

std::vector<ppd_option_t*> conflictedOptions(ppd_file_t* ppd) {
  ppdConflicts(ppd);
  std::vector<ppd_option_t*> conflicted;
  for (auto* option : allOptions(ppd)) {
    if (option->conflicted != 0) conflicted.push_back(option);
  }
  return conflicted;
}

int conflictCount(ppd_file_t* ppd, ppd_option_t& option) {
  const int all = ppdConflicts(ppd);
  const HiddenMark hidden(ppd, option);
  return all - ppdConflicts(ppd);
}

std::vector<ppd_option_t*> conflictsWith(ppd_file_t* ppd, ppd_option_t& option) {
  std::vector<ppd_option_t*> partners;
  const int count = conflictCount(ppd, option);
  if (count == 0) return partners;
  for (auto* candidate : conflictedOptions(ppd)) {
    const bool sameSize = isPageSize(*candidate) && isPageSize(option);
    if (candidate == &option || sameSize) continue;
    const HiddenMark hidden(ppd, *candidate);
    if (conflictCount(ppd, option) < count) partners.push_back(candidate);
  }
  ppdConflicts(ppd);
  return partners;
}

}  // namespace cardpanels::host
