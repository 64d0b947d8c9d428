#pragma once

#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include "dialog/Summary.h"

namespace cardpanels::gtk4 {

/// What is chosen, to be read: a heading a group, below it a row an entry.
class SummaryGrid : public Gtk::Grid {
 public:
  SummaryGrid();

  /// Shows `summary` in place of what is there; a group without entries is left out.
  void display(const dialog::Summary& summary);

 private:
  void attachHeading(const std::string& name);
  void attachEntry(const dialog::SummaryEntry& entry);

  int rows_ = 0;
};

}  // namespace cardpanels::gtk4
