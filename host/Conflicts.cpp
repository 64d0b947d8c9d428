#include "host/Conflicts.h"

#include "host/PPDRecords.h"

namespace cardpanels::host {

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
