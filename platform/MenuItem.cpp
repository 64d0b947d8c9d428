#include "platform/MenuItem.h"

#include <utility>

namespace cardpanels::platform {

std::shared_ptr<MenuItem> MenuItem::initWithTitle_action_keyEquivalent(
    const Text& title, const Text& action, const std::string& keyEquivalent) {
  auto item = std::make_shared<MenuItem>(Private());
  item->title_ = title;
  if (action || !keyEquivalent.empty()) {
    item->shortcut_ = std::make_unique<Shortcut>(Shortcut{action, keyEquivalent});
  }
  return item;
}

void MenuItem::setRepresentedObject(std::shared_ptr<Object> object) {
  representedObject_ = std::move(object);
}

}  // namespace cardpanels::platform
