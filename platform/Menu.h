#pragma once

#include <cstdint>
#include <memory>

#include "platform/MenuItem.h"
#include "platform/Object.h"

namespace cardpanels::platform {

/// The items of a pop-up button, in order.
class Menu : public Object {
 public:
  ~Menu() override;

  /// Puts `item` behind the others and keeps it.
  virtual void addItem(const std::shared_ptr<MenuItem>& item) = 0;

  /// The item at `index`, counted from 0; empty when there is none.
  virtual std::shared_ptr<MenuItem> itemAtIndex(std::int64_t index) = 0;
};

}  // namespace cardpanels::platform
