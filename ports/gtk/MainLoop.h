#pragma once

#include <functional>

namespace cardpanels::gtk {

/// Has GLib's main loop run `task`; on any thread.
void postToMainLoop(std::function<void()> task);

}  // namespace cardpanels::gtk
