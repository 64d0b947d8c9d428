#pragma once

#include <functional>
#include <memory>
#include <string>

#include "dialog/DialogSession.h"

namespace cardpanels::dialog {

/// Has `task` run later on the dialog's thread, or never when its main loop has ended. To be called
/// on any thread.
using Post = std::function<void(std::function<void()> task)>;

/// A `ReadQueue` that waits for the print server on a thread of its own, ten seconds at most, and
/// calls back by `post`. Threads that nobody waits for any more end soon; the program's end gives
/// them a moment.
ReadQueue readQueueOnThread(Post post);

}  // namespace cardpanels::dialog
