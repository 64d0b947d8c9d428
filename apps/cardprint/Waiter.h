#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "host/Error.h"
#include "host/Terms.h"

namespace cardpanels::cardprint {

/// The user waits for something no longer.
class Cancelled : public host::Error {
 public:
  using Error::Error;
};

/// Waits in a job's place for print servers and disks.
class Waiter {
 public:
  using Work = std::function<void(const host::Terms& terms)>;

  Waiter() = default;
  Waiter(const Waiter&) = delete;
  Waiter& operator=(const Waiter&) = delete;
  virtual ~Waiter() = default;

  /// Does `work`, which `what` tells of in a few words; again with a login where that is needed and
  /// can be had. Throws what `work` throws, and `Cancelled`; `work` may then go on on a thread of
  /// its own, and must share what it uses.
  virtual void wait(const std::string& what, Work work) = 0;
};

/// The same for what `work` answers.
template <typename Answer>
Answer waitedFor(Waiter& waiter, const std::string& what,
                 std::function<Answer(const host::Terms& terms)> work) {
  const auto answer = std::make_shared<std::optional<Answer>>();
  waiter.wait(what, [answer, work = std::move(work)](const host::Terms& terms) {
    answer->emplace(work(terms));
  });
  return std::move(**answer);
}

}  // namespace cardpanels::cardprint
