#pragma once

#include <gtkmm/label.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/scrolledwindow.h>

#include <functional>

#include "dialog/PanelHelp.h"

namespace cardpanels::gtk3 {

/// The button "?", and the help above it, which Escape closes.
class HelpButton : public Gtk::MenuButton {
 public:
  /// `help` answers what to show when the user asks for it.
  explicit HelpButton(std::function<dialog::Help()> help);

  /// Shows the help, or takes it away when it shows.
  void toggleHelp();

  void closeHelp() { set_active(false); }

 protected:
  void on_toggled() override;

 private:
  void fill(const dialog::Help& help);
  void fitInWindow();

  std::function<dialog::Help()> help_;
  Gtk::ScrolledWindow* scroller_;  // in the popover
  Gtk::Label* text_;               // in the scroller
};

}  // namespace cardpanels::gtk3
