#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "dialog/ServerThread.h"
#include "host/PrinterState.h"

namespace cardpanels::dialog {

/// What came of asking for a printer's state.
struct StateRead {
  host::PrinterState state;
  std::string error = {};  // why nothing is known of the state; "" else
  bool operator==(const StateRead&) const = default;
};

/// Begins to watch a queue's printer, and calls `changed` on the caller's thread with its first
/// state and each other one, until what it answers is destroyed.
using WatchState = std::function<std::shared_ptr<void>(
    const std::string& queue, std::function<void(const StateRead&)> changed)>;

/// Reads the state of a queue's printer again and again, on a thread of its own, for as long as
/// this lives. To be made, used and destroyed on the dialog's thread, which never waits.
class StateWatch {
 public:
  /// Calls `changed` by `post` with the first state, and whenever it is another. `changed` may
  /// destroy this.
  StateWatch(const std::string& queue, Post post, std::function<void(const StateRead&)> changed,
             std::chrono::milliseconds interval = std::chrono::seconds(5));
  ~StateWatch();
  StateWatch(const StateWatch&) = delete;
  StateWatch& operator=(const StateWatch&) = delete;

 private:
  struct Listener;

  std::shared_ptr<Listener> listener_;
  std::shared_ptr<void> thread_;
};

/// A `WatchState` by `StateWatch`.
WatchState watchStateOnThread(Post post);

}  // namespace cardpanels::dialog
