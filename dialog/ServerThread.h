#pragma once

#include <functional>

#include "host/ServerThread.h"

namespace cardpanels::dialog {

/// Has `task` run later on the dialog's thread, or never when its main loop has ended. To be called
/// on any thread.
using Post = std::function<void(std::function<void()> task)>;

using host::Abandonment;
using host::startServerThread;

}  // namespace cardpanels::dialog
