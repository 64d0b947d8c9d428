#pragma once

#include <memory>
#include <string>

#include "platform/PlugIn.h"

namespace cardpanels::host {

/// A new plug-in from the bundle in folder `bundle`, which holds it as `cardpanels.so`. Its code
/// stays loaded for the life of the process. Throws `Error` with the path and the loader's reason.
std::shared_ptr<platform::PlugIn> loadPlugIn(const std::string& bundle);

/// The folder of the platform library, and of what else is loaded when it is needed; absolute.
std::string libraryFolder();

/// The bundle's folder: `CARDPANELS_BUNDLE` in the environment, unless the program has other rights
/// than its user, else `cardpanels.bundle` in `libraryFolder`.
std::string defaultBundlePath();

}  // namespace cardpanels::host
