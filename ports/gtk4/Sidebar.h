#pragma once

#include <gtkmm/image.h>
#include <gtkmm/listbox.h>

#include <cstddef>
#include <string>
#include <vector>

#include "ports/gtk4/TabOrder.h"

namespace cardpanels::gtk4 {

/// A list of names of which one is selected. It is one stop of Tab; arrows go from row to row.
class Sidebar : public FocusMover, public Gtk::ListBox {
 public:
  Sidebar();

  void addName(const std::string& name);

  /// Gives a row a sign that `why` explains, also to assistive technology; none without `why`.
  void mark(std::size_t row, const std::string& why);

  /// Selects a row by its place; the focus goes with it when it is here.
  void select(std::size_t row);

 private:
  bool moveFocus(GtkDirectionType direction) override;

  std::vector<Gtk::Image*> signs_;  // a row each
};

}  // namespace cardpanels::gtk4
