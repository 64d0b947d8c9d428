#include "host/RuleChanges.h"

#include <algorithm>

#include "host/Sentences.h"

namespace cardpanels::host {

void RuleChanges::note(const Marks& marks, const ppd_option_t& option,
                       const std::vector<MarkChange>& changes) {
  close(option.keyword);
  for (MarkChange change : changes) {
    if (change.option == &option || !change.from || !change.to) continue;
    const std::string key = change.option->keyword;
    const auto earlier = std::find_if(all_.begin(), all_.end(),
                                      [&key](const RuleChange& each) { return each.key == key; });
    if (earlier != all_.end()) {
      change.from = earlier->from;
      all_.erase(earlier);
    }
    if (change.from == change.to) continue;
    all_.push_back({key, *change.from, *change.to, explanation(marks, option, {change})});
  }
}

void RuleChanges::close(const std::string& key) {
  std::erase_if(all_, [&key](const RuleChange& each) { return each.key == key; });
}

}  // namespace cardpanels::host
