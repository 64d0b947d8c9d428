#include "host/PlugInLibrary.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

#include "host/Error.h"

namespace cardpanels::host {

std::shared_ptr<platform::PlugIn> loadPlugIn(const std::string& bundle) {
  const std::string path = bundle + "/cardpanels.so";
  // Controls and log lines may outlive the last panel, so the code is never unloaded.
  void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) throw Error("cannot load the panels: " + std::string(dlerror()));
  const auto create =
      reinterpret_cast<decltype(&cardpanelsCreatePlugIn)>(dlsym(library, platform::kPlugInEntry));
  if (create == nullptr) {
    throw Error(path + ": not a panel plug-in, it has no " + platform::kPlugInEntry);
  }
  return std::shared_ptr<platform::PlugIn>(create());
}

std::string defaultBundlePath() {
  if (const char* path = std::getenv("CARDPANELS_BUNDLE")) return path;
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  return (program.parent_path().parent_path() / "lib" / "cardpanels.bundle").string();
}

}  // namespace cardpanels::host
