#include "host/Resolution.h"

#include <algorithm>
#include <string>
#include <utility>

#include "host/Conflicts.h"
#include "host/JobOption.h"
#include "host/PPDRecords.h"
#include "platform/CustomPrefix.h"

namespace cardpanels::host {
namespace {

using Partners = std::vector<ppd_option_t*>;
using Kept = std::set<const ppd_option_t*>;

/// Takes the marks of conflicts that `option` has no part in away for its own life, so that they
/// neither get in the way nor are "resolved" unasked.
class HiddenConflicts {
 public:
  HiddenConflicts(Marks& marks, const Partners& partners, const Kept& kept) : marks_(marks) {
    for (const auto* each : conflictedOptions(marks)) {
      const bool related = kept.contains(each) ||
                           std::find(partners.begin(), partners.end(), each) != partners.end();
      if (related || isPageSize(*each)) continue;
      hidden_.emplace_back(each, marks.mark(*each));
      marks.set(*each, Mark());
    }
  }
  /// What was marked anew meanwhile stays.
  ~HiddenConflicts() {
    for (const auto& [each, mark] : hidden_) {
      if (marks_.mark(*each).choice == nullptr) marks_.set(*each, mark);
    }
  }
  HiddenConflicts(const HiddenConflicts&) = delete;
  HiddenConflicts& operator=(const HiddenConflicts&) = delete;

 private:
  Marks& marks_;
  std::vector<std::pair<const ppd_option_t*, Mark>> hidden_;
};

/// Marks what libcups proposes; false when that is nothing or nothing to do unasked.
bool applyResolution(Marks& marks, const ppd_option_t& option, const Kept& kept) {
  const std::string wanted = marks.value(option).value_or("");
  // A value in braces is a custom one, which libcups sees by the prefix only.
  const std::string choice =
      wanted.substr(0, 1) == "{" ? std::string(platform::kCustomPrefix) + wanted : wanted;
  OptionList resolved;
  if (cupsResolveConflicts(marks.ppd(), option.keyword, choice.c_str(), &resolved.count,
                           &resolved.list) == 0) {
    return false;
  }
  for (const Option& each : resolved.options()) {
    const ppd_option_t* const other = findOption(marks.ppd(), each.key);
    if (kept.contains(other)) continue;
    // The card lies in the printer: its size is nothing to change unasked.
    if (other == nullptr || isPageSize(*other)) return false;
    ppd_choice_t* const listed = listedChoice(*other, each.value);
    if (listed == nullptr) return false;
    marks.set(*other, {listed});
  }
  return true;
}

/// libcups leaves Collate out of every resolution.
bool resolveCollate(Marks& marks, const ppd_option_t& option, const Kept& kept) {
  const ppd_option_t* const collate = findOption(marks.ppd(), "Collate");
  if (collate == nullptr || kept.contains(collate)) return false;
  const ppd_choice_t* const custom = customChoice(*collate);
  for (auto& choice : choicesOf(*collate)) {
    if (&choice == custom) continue;
    marks.set(*collate, {&choice});
    if (conflictCount(marks, option) == 0) return true;
  }
  return false;
}

}  // namespace

bool resolve(Marks& marks, const ppd_option_t& option, const Partners& partners, const Kept& kept) {
  const Marks::OwnNames names(marks);
  const int others = conflictCount(marks) - conflictCount(marks, option);
  const bool applied = [&] {
    const HiddenConflicts hidden(marks, partners, kept);
    return applyResolution(marks, option, kept);
  }();
  if (!applied) return false;
  const bool atPeace = conflictCount(marks, option) == 0 || resolveCollate(marks, option, kept);
  return atPeace && conflictCount(marks) <= others;
}

}  // namespace cardpanels::host
