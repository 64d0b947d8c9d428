#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dialog/MeasurementField.h"
#include "platform/Menu.h"
#include "platform/NibOwner.h"
#include "platform/PopUpButton.h"
#include "platform/TabView.h"
#include "platform/TextField.h"
#include "platform/View.h"

/// The toolkit in memory: what a control would show can be read, what a user would do can be done.
namespace cardpanels::headless {

/// What every view here has: its state, and the views inside it.
class ViewState {
 public:
  ViewState() = default;
  ViewState(const ViewState&) = delete;
  ViewState& operator=(const ViewState&) = delete;
  virtual ~ViewState();

  /// Whether this very view is hidden, whatever is around it.
  bool isHidden() const { return hidden_; }

  void setTag(std::int64_t tag) { tag_ = tag; }
  void addSubview(const std::shared_ptr<platform::View>& view) { subviews_.push_back(view); }

 protected:
  bool hidden_ = false;
  std::int64_t tag_ = 0;
  std::vector<std::shared_ptr<platform::View>> subviews_;
};

/// `Interface` with a view's state.
template <class Interface>
class Viewed : public Interface,
               public ViewState,
               public std::enable_shared_from_this<Viewed<Interface>> {
 public:
  void setHidden(bool hidden) override { hidden_ = hidden; }

  std::shared_ptr<platform::View> viewWithTag(std::int64_t tag) override {
    if (tag == tag_) return this->shared_from_this();
    for (const auto& view : subviews_) {
      if (auto found = view->viewWithTag(tag)) return found;
    }
    return nullptr;
  }
};

class View final : public Viewed<platform::View> {
 public:
  std::string_view className() const override { return "View"; }
};

class TabView final : public Viewed<platform::TabView> {
 public:
  std::string_view className() const override { return "TabView"; }
};

/// A label, or a field in which a user types a measurement.
class TextField final : public Viewed<platform::TextField>, public dialog::MeasurementField {
 public:
  enum class Use { label, entry };
  explicit TextField(Use use) : use_(use) {}

  std::string stringValue() const override { return text_; }
  void setStringValue(const platform::Text& text) override;
  std::string text() const override { return text_; }
  void setText(const std::string& text) override { setStringValue(text); }
  std::string caption() const override { return caption_; }
  bool hasFocus() const override { return focused_; }
  void takeFocus() override { focused_ = true; }
  std::string_view className() const override { return "TextField"; }

  void setCaption(std::string caption) { caption_ = std::move(caption); }

  /// What a user does: goes into the field and types `text` in place of what is there; leaves it;
  /// presses Enter in it.
  void userTypes(const std::string& text);
  void userLeaves();
  void userPressesEnter() { enter(); }

  /// Why the field is marked, and what its tooltip tells while it is not.
  const platform::Text& markedWhy() const { return why_; }
  const std::string& help() const { return help_; }

 private:
  bool isEditable() const override { return use_ == Use::entry; }
  void mark(const platform::Text& why) override { why_ = why; }
  void setHelp(const std::string& help) override { help_ = help; }

  Use use_;
  std::string text_;
  std::string caption_;
  bool focused_ = false;
  platform::Text why_;
  std::string help_;
};

class Menu final : public platform::Menu {
 public:
  void addItem(const std::shared_ptr<platform::MenuItem>& item) override { items_.push_back(item); }
  std::shared_ptr<platform::MenuItem> itemAtIndex(std::int64_t index) override;
  std::string_view className() const override { return "Menu"; }

  const std::vector<std::shared_ptr<platform::MenuItem>>& items() const { return items_; }
  void clear() { items_.clear(); }

 private:
  std::vector<std::shared_ptr<platform::MenuItem>> items_;
};

/// A pop-up that selects nothing by itself: after its items change, none is selected.
class PopUpButton final : public Viewed<platform::PopUpButton> {
 public:
  void removeAllItems() override;
  std::shared_ptr<platform::Menu> menu() override { return menu_; }
  std::int64_t indexOfSelectedItem() const override { return selected_; }
  void selectItemAtIndex(std::int64_t index) override;
  void setEnabled(bool enabled) override { enabled_ = enabled; }
  std::string_view className() const override { return "PopUpButton"; }

  const std::vector<std::shared_ptr<platform::MenuItem>>& items() const { return menu_->items(); }
  bool isEnabled() const { return enabled_; }
  void setAction(platform::ActionTarget action) { action_ = std::move(action); }

  /// What a user does: selects the item and lets go. The item must exist.
  void userSelects(std::int64_t index);

 private:
  std::shared_ptr<Menu> menu_ = std::make_shared<Menu>();
  std::int64_t selected_ = -1;
  bool enabled_ = true;
  platform::ActionTarget action_;
};

}  // namespace cardpanels::headless
