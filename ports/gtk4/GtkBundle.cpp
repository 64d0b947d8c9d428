#include "ports/gtk4/GtkBundle.h"

#include <stdexcept>
#include <utility>

#include "ports/gtk4/NibFile.h"

namespace cardpanels::gtk4 {

GtkBundle::GtkBundle(std::string path, dialog::Captions captions)
    : TextBundle(std::move(path)), captions_(std::move(captions)) {}

std::shared_ptr<platform::View> GtkBundle::loadNibNamed_owner(
    const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) {
  setLoadError(std::nullopt);
  try {
    return loadNibFile(viewFile(name, "gtk4"), owner, captions_);
  } catch (const std::runtime_error& error) {
    setLoadError(error.what());
    return nullptr;
  }
}

}  // namespace cardpanels::gtk4
