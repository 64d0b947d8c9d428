#pragma once

#include <gtkmm/box.h>
#include <gtkmm/infobar.h>

#include <cstddef>

#include "dialog/Notice.h"

namespace cardpanels::gtk3 {

/// A bar with a row a notice: its text, and a button an answer.
class NoticeBar final : public Gtk::InfoBar {
 public:
  NoticeBar();

  /// Shows `notices` in place of those before; the bar hides without any. Rows that stay the same
  /// keep the focus.
  void display(const dialog::Notices& notices);

 private:
  void addRow(std::size_t index);
  void answer(std::size_t index, std::size_t answer);

  dialog::Notices notices_;
  Gtk::Box rows_;
};

}  // namespace cardpanels::gtk3
