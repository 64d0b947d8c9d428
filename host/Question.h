#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "host/Talk.h"

namespace cardpanels::host {

/// Has `talking` talk with the print server on a thread of its own, with this thread's settings of
/// libcups, and waits until it is done: as long as `terms` say and no longer, even where libcups
/// or the system hold that thread. Throws what `talking` throws, and `Error`. `talking` must share
/// what it uses, as it may outlive the call.
void askServer(const Terms& terms, std::function<void(Talk& talk)> talking);

/// The same for what `talking` answers.
template <typename Answer>
Answer answerOfServer(const Terms& terms, std::function<Answer(Talk& talk)> talking) {
  const auto answer = std::make_shared<std::optional<Answer>>();
  askServer(terms,
            [answer, talking = std::move(talking)](Talk& talk) { answer->emplace(talking(talk)); });
  return std::move(**answer);
}

}  // namespace cardpanels::host
