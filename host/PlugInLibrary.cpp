#include "host/PlugInLibrary.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "host/Error.h"
#include "platform/Messages.h"

namespace cardpanels::host {

using platform::_;
using platform::filled;

std::shared_ptr<platform::PlugIn> loadPlugIn(const std::string& bundle) {
  const std::string path = bundle + "/cardpanels.so";
  // Controls and log lines may outlive the last panel, so the code is never unloaded.
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) {
    throw Error(filled(_("The panels cannot be loaded: {reason}"), {{"reason", dlerror()}}));
  }
  const auto create =
      reinterpret_cast<decltype(&cardpanelsCreatePlugIn)>(dlsym(library, platform::kPlugInEntry));
  if (create == nullptr) {
    throw Error(path + ": " +
                filled(_("This is no panel plug-in: it has no {entry}."),
                       {{"entry", platform::kPlugInEntry}}));
  }
  return std::shared_ptr<platform::PlugIn>(create());
}

std::string libraryFolder() {
  Dl_info library{};
  dladdr(reinterpret_cast<const void*>(&platform::useCatalogues), &library);
  std::error_code ignored;
  const auto path = std::filesystem::absolute(library.dli_fname, ignored).lexically_normal();
  return path.parent_path().string();
}

std::string defaultBundlePath() {
  if (const char* path = secure_getenv("CARDPANELS_BUNDLE")) return path;
  return libraryFolder() + "/cardpanels.bundle";
}

}  // namespace cardpanels::host
