#include "host/RecordMarks.h"

#include "host/PPDRecords.h"

namespace cardpanels::host {

void RecordMarks::collect(ppd_file_t* ppd, const ppd_option_t& option) {
  for (auto& choice : choicesOf(option)) {
    if (choice.marked != 0) choices.push_back(&choice);
  }
  if (!isPageSize(option)) return;
  for (auto& size : sizesOf(ppd)) {
    if (size.marked != 0) sizes.push_back(&size);
  }
}

void RecordMarks::putBack(ppd_file_t* ppd) const {
  for (auto* choice : choices) {
    choice->marked = 1;
    cupsArrayAdd(ppd->marked, choice);
  }
  for (auto* size : sizes) size->marked = 1;
}

void clearMarks(ppd_file_t* ppd, const ppd_option_t& option) {
  while (auto* marked = ppdFindMarkedChoice(ppd, option.keyword)) {
    if (cupsArrayRemove(ppd->marked, marked) == 0) break;
  }
  for (auto& choice : choicesOf(option)) choice.marked = 0;
  if (!isPageSize(option)) return;
  for (auto& size : sizesOf(ppd)) size.marked = 0;
}

}  // namespace cardpanels::host
