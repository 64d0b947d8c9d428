#pragma once

#include <memory>
#include <string>

#include "platform/Object.h"
#include "platform/Text.h"

namespace cardpanels::platform {

/// One item of a pop-up button's menu: a title, and the object that it stands for.
class MenuItem final : public Object {
  struct Private {};
  struct Shortcut {
    Text action;
    std::string keyEquivalent;
  };

 public:
  /// For `initWithTitle_action_keyEquivalent`.
  explicit MenuItem(Private /*key*/) {}

  /// A new item. `action` names what it does by itself, nothing for an item that only is selected;
  /// `keyEquivalent` is its keyboard shortcut, "" for none.
  static std::shared_ptr<MenuItem> initWithTitle_action_keyEquivalent(
      const Text& title, const Text& action, const std::string& keyEquivalent);

  const Text& title() const { return title_; }
  Text action() const { return shortcut_ ? shortcut_->action : std::nullopt; }
  std::string keyEquivalent() const { return shortcut_ ? shortcut_->keyEquivalent : ""; }

  /// Makes the item stand for `object`, which it keeps.
  void setRepresentedObject(std::shared_ptr<Object> object);
  const std::shared_ptr<Object>& representedObject() const { return representedObject_; }

  std::string_view className() const override { return "MenuItem"; }

 private:
  Text title_;
  std::unique_ptr<Shortcut> shortcut_;  // most items have none
  std::shared_ptr<Object> representedObject_;
};

}  // namespace cardpanels::platform
