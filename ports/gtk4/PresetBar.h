#pragma once

#include <giomm/simpleaction.h>
#include <gtkmm/box.h>
#include <gtkmm/dropdown.h>
#include <gtkmm/label.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/stringlist.h>

#include <functional>
#include <memory>

#include "dialog/PresetRow.h"
#include "dialog/Presets.h"
#include "ports/gtk4/NameDialog.h"

namespace cardpanels::gtk4 {

/// A row with the presets in a pop-up, what is to be known of the chosen one, and a menu of what
/// can be done with it.
class PresetBar final : public Gtk::Box {
 public:
  /// `presets` answers what the user works on; it is asked after a first `display` only.
  explicit PresetBar(std::function<dialog::Presets&()> presets);

  /// Shows `row`; there is no bar without entries.
  void display(const dialog::PresetRow& row);

 private:
  void addPopUp();
  void addMenu();
  void fill();
  void chosen();
  void saveAs();

  std::function<dialog::Presets&()> presets_;
  dialog::PresetRow row_;
  bool displaying_ = false;
  Glib::RefPtr<Gtk::StringList> titles_;
  Gtk::Label caption_;
  Gtk::DropDown popUp_;
  Gtk::Label state_;
  Gtk::MenuButton button_;
  Glib::RefPtr<Gio::SimpleAction> save_;
  Glib::RefPtr<Gio::SimpleAction> delete_;
  std::unique_ptr<NameDialog> asking_;
};

}  // namespace cardpanels::gtk4
