#pragma once

#include <gtkmm/dialog.h>
#include <gtkmm/grid.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "apps/cardprint-dialog/ChoiceBox.h"
#include "apps/cardprint-dialog/ValueFields.h"
#include "dialog/OtherOptions.h"
#include "host/PanelHost.h"
#include "ports/gtk3/NoticeBar.h"

namespace cardpanels::cardprint {

/// What the PPD has beyond the panels' options and the card's size, a pop-up each, with fields
/// below it for a value of one's own.
class OptionsDialog : public Gtk::Dialog {
 public:
  /// On top of `parent`, for the options of `panels`, which must outlive it.
  OptionsDialog(Gtk::Window& parent, host::PanelHost& panels);

  /// Lets the user change the options until they close it: by Close only when all that is typed is
  /// right; otherwise the job keeps what it had.
  void change();

  /// Shows what has become of the options.
  void refresh();

  /// Tells what came of the user's last action; "" for nothing.
  void tell(const std::string& message);

 private:
  struct Row {
    explicit Row(dialog::OtherOption made) : option(std::move(made)) {}

    dialog::OtherOption option;
    std::unique_ptr<ChoiceBox> box;
    std::unique_ptr<ValueFields> fields;  // null where there are none
  };

  void addRow(int place, const dialog::OptionRow& shown);
  void choose(Row& row, const std::string& choice);
  bool finish();

  host::PanelHost& panels_;
  gtk3::NoticeBar noticeBar_;
  Gtk::Grid grid_;
  std::vector<std::unique_ptr<Row>> rows_;
};

}  // namespace cardpanels::cardprint
