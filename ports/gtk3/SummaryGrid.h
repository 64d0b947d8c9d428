#pragma once

#include <gtkmm/grid.h>

#include <string>

#include "dialog/Summary.h"

namespace cardpanels::gtk3 {

/// What is chosen, to be read: a heading a panel, below it a row an option.
class SummaryGrid : public Gtk::Grid {
 public:
  SummaryGrid();

  /// Shows `summary` in place of what is there; a group without entries is left out.
  void display(const dialog::Summary& summary);

 private:
  void attachRow(int row, const std::string& title, const std::string& value);
};

}  // namespace cardpanels::gtk3
