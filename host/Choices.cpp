#include "host/Choices.h"

#include <algorithm>

#include "host/Conflicts.h"
#include "host/PPDRecords.h"
#include "host/Resolution.h"
#include "host/Sentences.h"
#include "platform/ASCII.h"

namespace cardpanels::host {
namespace {

using Options = std::vector<ppd_option_t*>;

/// Does it step by step, so that each change has a cause.
class Choosing {
 public:
  Choosing(Marks& marks, const std::vector<Choice>& choices, Causes& causes)
      : marks_(marks), choices_(choices), causes_(causes) {
    for (const Choice& each : choices) kept_.insert(each.option);
  }

  std::string run() {
    for (const Choice& each : choices_) {
      step(each, [&] { marks_.set(*each.option, each.mark); });
    }
    for (const Choice& each : choices_) {
      if (isTakenAway(each)) return exclusion(each, *taker(each));
    }
    for (const Choice& each : choices_) {
      std::string refused = resolved(each);
      if (!refused.empty()) return refused;
    }
    return changesOthers_ ? conflict() : "";
  }

 private:
  template <typename Action>
  void step(const Choice& cause, Action action) {
    const Marks::Snapshot before = marks_.snapshot();
    action();
    for (const MarkChange& each : marks_.changesSince(before)) {
      causes_[each.option] = cause.option;
    }
  }

  /// Marking one option takes the mark of some others away.
  bool isTakenAway(const Choice& choice) const {
    if (choice.mark.choice == nullptr || marks_.isMarked(*choice.option, choice.mark)) return false;
    const Choice* const other = taker(choice);
    if (other == nullptr) return false;
    // Page size and page region are two names of one thing.
    return !isPageSize(*choice.option) || !isPageSize(*other->option) ||
           !platform::equalIgnoringCase(valueOf(choice.mark), valueOf(other->mark));
  }

  const Choice* taker(const Choice& choice) const {
    const auto cause = causes_.find(choice.option);
    const auto taker = std::find_if(choices_.begin(), choices_.end(), [&](const Choice& each) {
      return cause != causes_.end() && each.option == cause->second;
    });
    return taker == choices_.end() ? nullptr : &*taker;
  }

  std::string exclusion(const Choice& choice, const Choice& other) const {
    return host::exclusion(*choice.option, choice.mark, *other.option, other.mark);
  }

  /// Changes what conflicts with `choice`; answers why not.
  std::string resolved(const Choice& choice) {
    const Options partners = conflictsWith(marks_, *choice.option);
    if (partners.empty()) return {};
    std::string refused = refusal(marks_, *choice.option, inTheWay(partners));
    changesOthers_ = true;
    bool atPeace = false;
    step(choice, [&] { atPeace = resolve(marks_, *choice.option, partners, kept_); });
    return atPeace ? "" : refused;
  }

  /// What changed for a later choice may not go with an earlier one.
  std::string conflict() const {
    for (const Choice& each : choices_) {
      const Options partners = conflictsWith(marks_, *each.option);
      if (!partners.empty()) return refusal(marks_, *each.option, partners);
    }
    return {};
  }

  /// Those of `partners` that cannot be changed, all when that is not why.
  Options inTheWay(const Options& partners) const {
    Options chosen;
    std::copy_if(partners.begin(), partners.end(), std::back_inserter(chosen),
                 [&](const ppd_option_t* each) { return kept_.contains(each); });
    return chosen.empty() ? partners : chosen;
  }

  Marks& marks_;
  const std::vector<Choice>& choices_;
  Causes& causes_;
  std::set<const ppd_option_t*> kept_;
  bool changesOthers_ = false;
};

}  // namespace

std::string choose(Marks& marks, const std::vector<Choice>& choices, Causes& causes) {
  const Marks::OwnNames names(marks);
  return Choosing(marks, choices, causes).run();
}

}  // namespace cardpanels::host
