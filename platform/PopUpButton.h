#pragma once

#include <cstdint>
#include <memory>

#include "platform/Menu.h"
#include "platform/View.h"

namespace cardpanels::platform {

/// A button that shows one item of a menu and lets the user select another. Only the user's
/// selection fires the button's action; the setters never do.
class PopUpButton : public View {
 public:
  ~PopUpButton() override;

  virtual void removeAllItems() = 0;

  /// The button's menu, which the button keeps: the same one at every call. Empty when it has none.
  virtual std::shared_ptr<Menu> menu() = 0;

  /// The selected item counted from 0, -1 when none is.
  virtual std::int64_t indexOfSelectedItem() const = 0;

  /// Selects an item; an index without an item selects none.
  virtual void selectItemAtIndex(std::int64_t index) = 0;

  /// Whether the user may select.
  virtual void setEnabled(bool enabled) = 0;
};

}  // namespace cardpanels::platform
