#pragma once

#include <gtkmm/grid.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/Dictionary.h"

namespace cardpanels::gtk3 {

/// What is chosen, to be read: a heading a panel, below it a row an option.
class SummaryGrid : public Gtk::Grid {
 public:
  /// The choices of one panel.
  struct Group {
    std::string name;
    std::shared_ptr<const platform::Dictionary> entries;  // never an empty pointer
  };

  SummaryGrid();

  /// Shows `groups` in place of what is there; a group without entries is left out.
  void display(const std::vector<Group>& groups);

 private:
  void attachRow(int row, const std::string& title, const std::string& value);
};

}  // namespace cardpanels::gtk3
