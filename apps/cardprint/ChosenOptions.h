#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "apps/cardprint/Waiter.h"
#include "host/JobOptions.h"

namespace cardpanels::cardprint {

/// What a job can carry besides the options of the printer's PPD.
class AttributeKeys {
 public:
  /// For jobs of `queue`, empty for no print server. `waiter` must outlive this.
  AttributeKeys(std::string queue, Waiter& waiter) : queue_(std::move(queue)), waiter_(waiter) {}

  /// Asks the print server at most once, and only for what libcups does not know. Throws
  /// `host::Error`, and `Cancelled`.
  bool contains(const std::string& key);

 private:
  std::string queue_;
  Waiter& waiter_;
  std::optional<std::set<std::string>> ofServer_;
};

/// What the user's options are to a job, besides the marks of the PPD.
struct ChosenOptions {
  std::vector<host::Option> attributes;
  platform::Text title;  // `job-name`
  std::string notice;    // what has changed besides, in sentences; "" for nothing
};

/// Throws `host::Error`, which names the option, unless `option` is one of the PPD with a choice of
/// it, or one of `keys`.
void checkOption(const host::JobOptions& job, const host::Option& option, AttributeKeys& keys);

/// Marks those of `given` that are the PPD's, by the host's rules, and answers the rest. Throws
/// `host::Error`, as `checkOption` does and for options that exclude each other.
ChosenOptions choose(host::JobOptions& job, const std::vector<host::Option>& given,
                     AttributeKeys& keys);

/// Judges the job as a user would before they print. Throws `host::Error` for options that exclude
/// each other and for an area that is none. Answers what can be printed but cannot be right, a
/// sentence each.
std::vector<std::string> judged(const host::JobOptions& job);

}  // namespace cardpanels::cardprint
