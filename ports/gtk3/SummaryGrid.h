#pragma once

#include <gtkmm/box.h>
#include <gtkmm/grid.h>

#include <string>

#include "platform/Dictionary.h"

namespace cardpanels::gtk3 {

/// What is chosen, to be read: a heading a panel, below it a row an option.
class SummaryGrid : public Gtk::Grid {
 public:
  SummaryGrid();

  void clear();

  /// Adds the rows of one panel behind the others; none for an empty summary.
  void add(const std::string& panelName, const platform::Dictionary& summary);

 private:
  void addRow(const std::string& title, const std::string& value);

  int rows_ = 0;
};

}  // namespace cardpanels::gtk3
