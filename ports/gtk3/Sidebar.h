#pragma once

#include <gtkmm/image.h>
#include <gtkmm/listbox.h>

#include <cstddef>
#include <string>
#include <vector>

namespace cardpanels::gtk3 {

/// A list of names of which one is selected. It is one stop of Tab; arrows go from row to row.
class Sidebar : public Gtk::ListBox {
 public:
  Sidebar() { set_selection_mode(Gtk::SELECTION_BROWSE); }

  void addName(const std::string& name);

  /// Gives a row a sign that `why` explains, also to assistive technology; none without `why`.
  void mark(std::size_t row, const std::string& why);

  /// Selects a row by its place; the focus goes with it when it is here.
  void select(std::size_t row);

 protected:
  bool on_focus(Gtk::DirectionType direction) override;

 private:
  std::vector<Gtk::Image*> signs_;  // a row each
};

}  // namespace cardpanels::gtk3
