#pragma once

#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include <functional>
#include <string>

#include "dialog/PresetRow.h"

namespace cardpanels::gtk3 {

/// A small window that asks for a preset's name, and tells what is wrong with it while it is typed.
class NameDialog final : public Gtk::Dialog {
 public:
  using Judge = std::function<dialog::NameVerdict(const std::string& name)>;
  using Accept = std::function<void(const std::string& name)>;

  /// On top of `parent`, null for none. A good name that the user saves is accepted, once the
  /// window is hidden.
  NameDialog(Gtk::Window* parent, Judge judge, Accept accept);

 protected:
  void on_response(int response) override;

 private:
  void typed();

  Judge judge_;
  Accept accept_;
  Gtk::Grid grid_;
  Gtk::Label caption_;
  Gtk::Entry name_;
  Gtk::Label verdict_;
};

}  // namespace cardpanels::gtk3
