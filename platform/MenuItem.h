#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels::platform {

/// One item of a pop-up button's menu: a title, and the object that it stands for.
class MenuItem final : public Object {
 public:
  /// A new item. `action` names what it does by itself, nothing for an item that only is selected;
  /// `keyEquivalent` is its keyboard shortcut, "" for none.
  static std::shared_ptr<MenuItem> initWithTitle_action_keyEquivalent(
      const Text& title, const Text& action, const std::string& keyEquivalent);

  const Text& title() const { return title_; }
  const Text& action() const { return action_; }
  const std::string& keyEquivalent() const { return keyEquivalent_; }

  /// Makes the item stand for `object`, which it keeps.
  void setRepresentedObject(std::shared_ptr<Object> object);
  const std::shared_ptr<Object>& representedObject() const { return representedObject_; }

  std::string className() const override { return "MenuItem"; }

 private:
  MenuItem() = default;

  Text title_;
  Text action_;
  std::string keyEquivalent_;
  std::shared_ptr<Object> representedObject_;
};

}  // namespace cardpanels::platform
