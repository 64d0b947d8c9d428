#pragma once

#include <gtkmm/box.h>
#include <gtkmm/combobox.h>
#include <gtkmm/label.h>
#include <gtkmm/liststore.h>
#include <gtkmm/menu.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/menuitem.h>

#include <functional>
#include <memory>

#include "dialog/PresetRow.h"
#include "dialog/Presets.h"
#include "ports/gtk3/NameDialog.h"

namespace cardpanels::gtk3 {

/// A row with the presets in a pop-up, what is to be known of the chosen one, and a menu of what
/// can be done with it.
class PresetBar final : public Gtk::Box {
 public:
  /// `presets` answers what the user works on; it is asked after a first `display` only.
  explicit PresetBar(std::function<dialog::Presets&()> presets);
  PresetBar(const PresetBar&) = delete;
  PresetBar& operator=(const PresetBar&) = delete;

  /// Shows `row`; there is no bar without entries.
  void display(const dialog::PresetRow& row);

 private:
  struct Columns : Gtk::TreeModelColumnRecord {
    Columns() {
      add(title);
      add(icon);
    }
    Gtk::TreeModelColumn<Glib::ustring> title;
    Gtk::TreeModelColumn<Glib::ustring> icon;
  };

  void addItem(Gtk::MenuItem& item, void (PresetBar::*activated)());
  void fill();
  void changed();
  void save();
  void saveAs();
  void remove();

  std::function<dialog::Presets&()> presets_;
  Columns columns_;
  Glib::RefPtr<Gtk::ListStore> entries_;
  Gtk::Label caption_;
  Gtk::ComboBox popUp_;
  Gtk::Label state_;
  Gtk::MenuButton button_;
  Gtk::Menu menu_;
  Gtk::MenuItem save_;
  Gtk::MenuItem saveAs_;
  Gtk::MenuItem delete_;
  std::unique_ptr<NameDialog> asking_;
  dialog::PresetRow row_;
  bool filling_ = false;
};

}  // namespace cardpanels::gtk3
