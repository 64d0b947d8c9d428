#include "ports/headless/Controls.h"

namespace cardpanels::headless {

ViewState::~ViewState() = default;

void TextField::setStringValue(const platform::Text& text) {
  text_ = text.value_or("");
  textChanged(false);
}

void TextField::userTypes(const std::string& text) {
  focused_ = true;
  text_ = text;
  textChanged(true);
}

void TextField::userLeaves() {
  focused_ = false;
  leave();
}

std::shared_ptr<platform::MenuItem> Menu::itemAtIndex(std::int64_t index) {
  const bool there = index >= 0 && index < static_cast<std::int64_t>(items_.size());
  return there ? items_[static_cast<std::size_t>(index)] : nullptr;
}

void PopUpButton::removeAllItems() {
  menu_->clear();
  selected_ = -1;
}

void PopUpButton::selectItemAtIndex(std::int64_t index) {
  selected_ = menu_->itemAtIndex(index) ? index : -1;
}

void PopUpButton::userSelects(std::int64_t index) {
  selectItemAtIndex(index);
  action_.fire(shared_from_this());
}

}  // namespace cardpanels::headless
