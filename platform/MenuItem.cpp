#include "platform/MenuItem.h"

#include <utility>

namespace cardpanels::platform {

std::shared_ptr<MenuItem> MenuItem::initWithTitle_action_keyEquivalent(
    const Text& title, const Text& action, const std::string& keyEquivalent) {
  std::shared_ptr<MenuItem> item(new MenuItem);
  item->title_ = title;
  item->action_ = action;
  item->keyEquivalent_ = keyEquivalent;
  return item;
}

void MenuItem::setRepresentedObject(std::shared_ptr<Object> object) {
  representedObject_ = std::move(object);
}

}  // namespace cardpanels::platform
