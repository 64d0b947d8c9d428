#include "host/Conflicts.h"

#include "host/PPDRecords.h"
#include "host/RecordMarks.h"

namespace cardpanels::host {
namespace {

/// Takes an option's marks away for its own life.
class HiddenMark {
 public:
  HiddenMark(const Marks& marks, const ppd_option_t& option) : ppd_(marks.ppd()) {
    hidden_.collect(ppd_, option);
    clearMarks(ppd_, option);
  }
  ~HiddenMark() { hidden_.putBack(ppd_); }
  HiddenMark(const HiddenMark&) = delete;
  HiddenMark& operator=(const HiddenMark&) = delete;

 private:
  ppd_file_t* ppd_;
  RecordMarks hidden_;
};

}  // namespace

int conflictCount(const Marks& marks) {
  const Marks::OwnNames names(marks);
  return ppdConflicts(marks.ppd());
}

int conflictCount(const Marks& marks, const ppd_option_t& option) {
  const Marks::OwnNames names(marks);
  const int all = conflictCount(marks);
  const HiddenMark hidden(marks, option);
  return all - conflictCount(marks);
}

std::vector<ppd_option_t*> conflictsWith(const Marks& marks, const ppd_option_t& option) {
  const Marks::OwnNames names(marks);
  std::vector<ppd_option_t*> partners;
  const int count = conflictCount(marks, option);
  if (count == 0) return partners;
  for (auto* candidate : conflictedOptions(marks)) {
    const bool sameSize = isPageSize(*candidate) && isPageSize(option);
    if (candidate == &option || sameSize) continue;
    const HiddenMark hidden(marks, *candidate);
    if (conflictCount(marks, option) < count) partners.push_back(candidate);
  }
  ppdConflicts(marks.ppd());  // leaves each record's `conflicted` as the marks are
  return partners;
}

std::vector<ppd_option_t*> conflictedOptions(const Marks& marks) {
  const Marks::OwnNames names(marks);
  ppdConflicts(marks.ppd());
  std::vector<ppd_option_t*> conflicted;
  for (auto* option : allOptions(marks.ppd())) {
    if (option->conflicted != 0) conflicted.push_back(option);
  }
  return conflicted;
}

}  // namespace cardpanels::host
