#pragma once

#include <cups/ppd.h>

#include <string>
#include <vector>

#include "host/Marks.h"

namespace cardpanels::host {

/// What the rules have changed of an option on their own, because of what the user asked for
/// another one.
struct RuleChange {
  std::string key;
  std::string from;      // the value before the rules' first change, as a job carries it
  std::string to;        // the value now
  std::string sentence;  // what was changed and why, for people
  bool operator==(const RuleChange&) const = default;
};

/// The changes that the user has neither closed nor undone, nor gone over by a choice of their own,
/// in the order in which they came.
class RuleChanges {
 public:
  const std::vector<RuleChange>& all() const { return all_; }

  /// Takes in what the user's request for `option` has brought about: `changes`, that of `option`
  /// itself included, while `marks` are as they are since.
  void note(const Marks& marks, const ppd_option_t& option, const std::vector<MarkChange>& changes);

  /// Drops the change of that option, if there is one.
  void close(const std::string& key);

 private:
  std::vector<RuleChange> all_;
};

}  // namespace cardpanels::host
