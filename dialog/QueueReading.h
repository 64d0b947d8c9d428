#pragma once

#include "dialog/DialogSession.h"
#include "dialog/ServerThread.h"

namespace cardpanels::dialog {

/// A `ReadQueue` that waits for the print server on a thread of its own, ten seconds at most, and
/// calls back by `post`. Threads that nobody waits for any more end soon; the program's end gives
/// them a moment.
ReadQueue readQueueOnThread(Post post);

}  // namespace cardpanels::dialog
