#pragma once

#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include <functional>
#include <string>
#include <vector>

#include "dialog/OtherOptions.h"

namespace cardpanels::cardprint {

/// The fields of an option's value of one's own, and below them what is wrong with it. What the
/// program sets is not typed.
class ValueFields : public Gtk::Grid {
 public:
  /// What the user does there.
  struct Actions {
    std::function<void(std::size_t field, const std::string& text)> type;
    std::function<void()> leave;  // the field
    std::function<void()> enter;
  };

  ValueFields(const std::vector<dialog::ValueField>& fields, Actions actions);

  /// Shows their texts and faults; the fields are as many as before.
  void showValues(const std::vector<dialog::ValueField>& fields);

  void focus(std::size_t field) { entries_[field]->grab_focus(); }

 private:
  Actions actions_;
  std::vector<Gtk::Entry*> entries_;
  Gtk::Label fault_;
  bool isShowing_ = false;
};

}  // namespace cardpanels::cardprint
