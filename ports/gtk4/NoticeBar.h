#pragma once

#include <gtkmm/box.h>
#include <gtkmm/infobar.h>
#include <gtkmm/scrolledwindow.h>
#include <sigc++/connection.h>

#include <cstddef>

#include "dialog/Notice.h"

namespace cardpanels::gtk4 {

/// A bar with a row a notice: its text, and a button an answer.
class NoticeBar final : public Gtk::InfoBar {
 public:
  NoticeBar();
  ~NoticeBar() override;

  /// Shows `notices` in place of those before; the bar hides without any. Rows that stay the same
  /// keep the focus.
  void display(const dialog::Notices& notices);

 private:
  void fit();
  void addRow(std::size_t index);
  void answer(std::size_t index, std::size_t answer);

  dialog::Notices notices_;
  Gtk::ScrolledWindow scroller_;
  Gtk::Box rows_;
  sigc::connection fitting_;
};

}  // namespace cardpanels::gtk4
