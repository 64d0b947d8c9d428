#pragma once

#include <gtkmm/dialog.h>
#include <gtkmm/grid.h>

#include <map>
#include <memory>
#include <string>

#include "apps/cardprint-dialog/ChoiceBox.h"
#include "host/PanelHost.h"
#include "ports/gtk3/NoticeBar.h"

namespace cardpanels::cardprint {

/// What the PPD has beyond the panels' options and the card's size, a pop-up each.
class OptionsDialog : public Gtk::Dialog {
 public:
  /// On top of `parent`, for the options of `panels`, which must outlive it.
  OptionsDialog(Gtk::Window& parent, host::PanelHost& panels);

  /// Shows what has become of the options.
  void refresh();

  /// Tells what came of the user's last action; "" for nothing.
  void tell(const std::string& message);

 private:
  host::PanelHost& panels_;
  gtk3::NoticeBar noticeBar_;
  Gtk::Grid grid_;
  std::map<std::string, std::unique_ptr<ChoiceBox>> boxes_;
};

}  // namespace cardpanels::cardprint
