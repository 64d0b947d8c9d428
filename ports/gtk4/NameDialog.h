#pragma once

#include <gtkmm/button.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/window.h>

#include <functional>
#include <string>

#include "dialog/PresetRow.h"

namespace cardpanels::gtk4 {

/// A small window that asks for a preset's name, and tells what is wrong with it while it is typed.
class NameDialog final : public Gtk::Window {
 public:
  using Judge = std::function<dialog::NameVerdict(const std::string& name)>;
  using Accept = std::function<void(const std::string& name)>;

  /// On top of `parent`, null for none. A good name that the user saves is accepted, once the
  /// window is hidden.
  NameDialog(Gtk::Window* parent, Judge judge, Accept accept);

 private:
  void fill();
  void closeOnEscape();
  void typed();
  void saved();

  Judge judge_;
  Accept accept_;
  Gtk::Label caption_;
  Gtk::Entry name_;
  Gtk::Label verdict_;
  Gtk::Button cancel_;
  Gtk::Button save_;
};

}  // namespace cardpanels::gtk4
