#pragma once

#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/liststore.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dialog/MeasurementField.h"
#include "platform/Menu.h"
#include "platform/PopUpButton.h"
#include "platform/TabView.h"
#include "platform/TextField.h"
#include "platform/View.h"
#include "ports/gtk3/WidgetView.h"

/// The toolkit interfaces over GTK 3's widgets.
namespace cardpanels::gtk3 {

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
  explicit TabView(const Glib::RefPtr<Gtk::Widget>& tabs);
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
  bool hasFocus() const override { return widget().is_focus(); }
  void takeFocus() override { widget().grab_focus(); }
  std::string_view className() const override { return "TextField"; }

 private:
  Gtk::Entry& entry() const { return dynamic_cast<Gtk::Entry&>(widget()); }
  bool isEditable() const override { return entry().get_editable(); }
  void mark(const platform::Text& why) override;
  void setHelp(const std::string& help) override { help_ = help; }
  void changed();
  void activated();
  bool focusLeft(GdkEventFocus* event);

  std::string help_;  // what the tooltip tells while the text is good
};

/// The items of a pop-up, and the rows that show their titles.
class Menu final : public platform::Menu {
 public:
  explicit Menu(Glib::RefPtr<Gtk::ListStore> rows) : rows_(std::move(rows)) {}

  void addItem(const std::shared_ptr<platform::MenuItem>& item) override;
  std::shared_ptr<platform::MenuItem> itemAtIndex(std::int64_t index) override;
  std::string_view className() const override { return "Menu"; }

  void clear();

 private:
  std::vector<std::shared_ptr<platform::MenuItem>> items_;
  Glib::RefPtr<Gtk::ListStore> rows_;
};

/// A combo box, whose items are a menu, or a list when there are many. It selects nothing by
/// itself: after its items change, none is selected.
class PopUpButton final : public Viewed<platform::PopUpButton> {
 public:
  /// `comboBox` must be a `Gtk::ComboBoxText`.
  explicit PopUpButton(const Glib::RefPtr<Gtk::Widget>& comboBox);

  void removeAllItems() override;
  std::shared_ptr<platform::Menu> menu() override { return menu_; }
  std::int64_t indexOfSelectedItem() const override;
  void selectItemAtIndex(std::int64_t index) override;
  void setEnabled(bool enabled) override { widget().set_sensitive(enabled); }
  std::string_view className() const override { return "PopUpButton"; }

 private:
  Gtk::ComboBoxText& comboBox() const { return dynamic_cast<Gtk::ComboBoxText&>(widget()); }
  void grown();

  std::shared_ptr<Menu> menu_;
  bool opensAsList_ = false;
};

/// The view over `widget` that fits its kind: combo boxes with texts are pop-ups, entries and
/// labels text fields, notebooks and stacks tab views, all else plain views.
std::shared_ptr<platform::View> viewOver(const Glib::RefPtr<Gtk::Widget>& widget);

}  // namespace cardpanels::gtk3
