#pragma once

#include <functional>
#include <memory>
#include <string>

#include "apps/gtk3-module/DialogSession.h"

namespace cardpanels::gtk3module {

/// A `ReadQueue` that waits for the print server on a thread of its own, ten seconds at most, and
/// calls back from GLib's main loop. Threads that nobody waits for any more end soon; the program's
/// end gives them a moment.
std::shared_ptr<void> readQueueOnThread(const std::string& queue,
                                        std::function<void(QueueRead)> done);

}  // namespace cardpanels::gtk3module
