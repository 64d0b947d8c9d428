#pragma once

#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/stringlist.h>

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dialog/MeasurementField.h"
#include "platform/Menu.h"
#include "platform/PopUpButton.h"
#include "platform/TabView.h"
#include "platform/TextField.h"
#include "platform/View.h"
#include "ports/gtk4/WidgetView.h"

/// The toolkit interfaces over GTK 4's widgets.
namespace cardpanels::gtk4 {

/// `Interface` over a widget.
template <class Interface>
class Viewed : public Interface,
               public WidgetView,
               public std::enable_shared_from_this<Viewed<Interface>> {
 public:
  using WidgetView::WidgetView;

  void setHidden(bool hidden) override { setWidgetHidden(hidden); }

  std::shared_ptr<platform::View> viewWithTag(std::int64_t tag) override {
    return carriesTag(tag) ? this->shared_from_this() : subviewWithTag(tag);
  }
};

class View final : public Viewed<platform::View> {
 public:
  using Viewed::Viewed;
  std::string_view className() const override { return "View"; }
};

/// A notebook or a stack.
class TabView final : public Viewed<platform::TabView> {
 public:
  using Viewed::Viewed;
  std::string_view className() const override { return "TabView"; }
};

/// A text that the user only reads.
class LabelField final : public Viewed<platform::TextField> {
 public:
  /// `label` must be a `Gtk::Label`.
  explicit LabelField(const Glib::RefPtr<Gtk::Widget>& label) : Viewed(label) {}

  std::string stringValue() const override { return label().get_text(); }
  void setStringValue(const platform::Text& text) override { label().set_text(text.value_or("")); }
  std::string_view className() const override { return "TextField"; }

 private:
  Gtk::Label& label() const { return dynamic_cast<Gtk::Label&>(widget()); }
};

/// A measurement that the user types.
class EntryField final : public Viewed<platform::TextField>, public dialog::MeasurementField {
 public:
  /// `entry` must be a `Gtk::Entry`.
  explicit EntryField(const Glib::RefPtr<Gtk::Widget>& entry);

  std::string stringValue() const override { return entry().get_text(); }
  void setStringValue(const platform::Text& text) override;
  std::string text() const override { return stringValue(); }
  void setText(const std::string& text) override { setStringValue(text); }
  std::string caption() const override;
  bool hasFocus() const override;
  void takeFocus() override { widget().grab_focus(); }
  std::string_view className() const override { return "TextField"; }

 private:
  Gtk::Entry& entry() const { return dynamic_cast<Gtk::Entry&>(widget()); }
  bool isEditable() const override { return entry().get_editable(); }
  void mark(const platform::Text& why) override;
  void setHelp(const std::string& help) override { help_ = help; }
  void changed();
  void activated();
  void focusLeft();

  std::string help_;  // what the tooltip tells while the text is good
};

/// The items of a pop-up, whose titles it shows.
class Menu final : public platform::Menu {
 public:
  /// `show` adds a title to those that the pop-up shows.
  explicit Menu(sigc::slot<void(const std::string& title)> show) : show_(std::move(show)) {}

  void addItem(const std::shared_ptr<platform::MenuItem>& item) override;
  std::shared_ptr<platform::MenuItem> itemAtIndex(std::int64_t index) override;
  std::string_view className() const override { return "Menu"; }

  void clear() { items_.clear(); }
  guint count() const { return static_cast<guint>(items_.size()); }

 private:
  std::vector<std::shared_ptr<platform::MenuItem>> items_;
  sigc::slot<void(const std::string& title)> show_;
};

/// A drop-down list. It selects nothing by itself: after its items change, none is selected. GTK
/// 4.18 always has a title selected where there are any: an empty one, the last, stands for none.
class PopUpButton final : public Viewed<platform::PopUpButton> {
 public:
  /// `dropDown` must be a `Gtk::DropDown`.
  explicit PopUpButton(const Glib::RefPtr<Gtk::Widget>& dropDown);

  void removeAllItems() override;
  std::shared_ptr<platform::Menu> menu() override { return menu_; }
  std::int64_t indexOfSelectedItem() const override;
  void selectItemAtIndex(std::int64_t index) override;
  void setEnabled(bool enabled) override { widget().set_sensitive(enabled); }
  bool isUsersChange() override;
  std::string_view className() const override { return "PopUpButton"; }

 private:
  Gtk::DropDown& dropDown() const { return dynamic_cast<Gtk::DropDown&>(widget()); }
  void show(const std::string& title);
  void select(std::int64_t index);
  std::int64_t selectedOf(guint count) const;
  bool hasEmptyTitle() const { return titles_->get_n_items() > menu_->count(); }

  Glib::RefPtr<Gtk::StringList> titles_;
  std::shared_ptr<Menu> menu_;
  std::int64_t told_ = -1;  // what was selected when it was last asked or set
};

/// The view over `widget` that fits its kind: drop-down lists are pop-ups, entries and labels text
/// fields, notebooks and stacks tab views, all else plain views.
std::shared_ptr<platform::View> viewOver(const Glib::RefPtr<Gtk::Widget>& widget);

}  // namespace cardpanels::gtk4
