#pragma once

#include <gtkmm/label.h>
#include <gtkmm/menubutton.h>
#include <gtkmm/popover.h>
#include <gtkmm/scrolledwindow.h>

#include <functional>

#include "dialog/PanelHelp.h"

namespace cardpanels::gtk4 {

/// The button "?", and the help above it, which Escape closes.
class HelpButton : public Gtk::MenuButton {
 public:
  /// `help` answers what to show when the user asks for it.
  explicit HelpButton(std::function<dialog::Help()> help);

  /// Shows the help, or takes it away when it shows.
  void toggleHelp();

  void closeHelp() { popdown(); }

 private:
  void fill();

  std::function<dialog::Help()> help_;
  Gtk::Popover* popover_;
  Gtk::ScrolledWindow* scroller_;  // in the popover
  Gtk::Label* text_;               // in the scroller
};

}  // namespace cardpanels::gtk4
