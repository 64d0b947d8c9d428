#include "dialog/TextBundle.h"

namespace cardpanels::dialog {

using platform::Text;

TextBundle::TextBundle(std::string path) : path_(std::move(path)), strings_(path_) {}

std::shared_ptr<platform::View> TextBundle::loadNibNamed_owner(
    const std::string& name, const std::shared_ptr<platform::NibOwner>& /*owner*/) {
  loadError_ = viewFile(name) + ": no toolkit shows it";
  return nullptr;
}

Text TextBundle::localizedStringForKey_value_table(const std::string& key, const Text& value,
                                                   const Text& /*table*/) {
  Text text = strings_.text(key);
  if (!text) text = value ? value : key;
  return text;
}

std::string TextBundle::viewFile(const std::string& name, const std::string& folder) const {
  return path_ + "/resources/" + folder + "/" + name + ".ui";
}

}  // namespace cardpanels::dialog
