#include "ports/gtk3/GtkBundle.h"

#include <stdexcept>
#include <utility>

#include "ports/gtk3/NibFile.h"

namespace cardpanels::gtk3 {

using platform::Text;

GtkBundle::GtkBundle(std::string path, dialog::Captions captions)
    : path_(std::move(path)), captions_(std::move(captions)), strings_(path_) {}

std::shared_ptr<platform::View> GtkBundle::loadNibNamed_owner(
    const std::string& name, const std::shared_ptr<platform::NibOwner>& owner) {
  loadError_.reset();
  try {
    return loadNibFile(path_ + "/resources/ui/" + name + ".ui", owner, captions_);
  } catch (const std::runtime_error& error) {
    loadError_ = error.what();
    return nullptr;
  }
}

Text GtkBundle::localizedStringForKey_value_table(const std::string& key, const Text& value,
                                                  const Text& /*table*/) {
  Text text = strings_.text(key);
  if (text) return text;
  return value ? value : key;
}

}  // namespace cardpanels::gtk3
