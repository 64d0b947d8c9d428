#include "apps/cardprint/Windows.h"

#include <dlfcn.h>

#include "host/Error.h"
#include "host/PlugInLibrary.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {

std::unique_ptr<Windows> openWindows() {
  const std::string path = host::libraryFolder() + "/" + kWindowsLibrary;
  // Toolkits cannot be unloaded.
  void* const library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  void* const entry = library == nullptr ? nullptr : dlsym(library, "cardprintOpenWindows");
  if (entry == nullptr) {
    throw host::Error(platform::filled(
        platform::_("The dialog cannot be opened: {reason}; --no-dialog needs none."),
        {{"reason", dlerror()}}));
  }
  return std::unique_ptr<Windows>(reinterpret_cast<decltype(&cardprintOpenWindows)>(entry)());
}

}  // namespace cardpanels::cardprint
