#pragma once

#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include <vector>

#include "dialog/Summary.h"

namespace cardpanels::gtk3 {

/// What is chosen, to be read: a heading a group, below it a row an entry.
class SummaryGrid : public Gtk::Grid {
 public:
  SummaryGrid();

  /// Shows `summary` in place of what is there; a group without entries is left out. Where only
  /// texts differ the labels stay, and with them whoever reads one of them aloud.
  void display(const dialog::Summary& summary);

 private:
  /// What a label is for.
  enum class Part { heading, title, value, remark };

  static std::vector<Part> partsOf(const dialog::Summary& summary);
  void makeLabels(std::vector<Part> parts);

  std::vector<Part> parts_;
  std::vector<Gtk::Label*> labels_;  // a part each
};

}  // namespace cardpanels::gtk3
