#pragma once

#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>
#include <gtkmm/spinbutton.h>

#include <functional>
#include <string>
#include <vector>

#include "apps/cardprint-dialog/ChoiceBox.h"
#include "apps/cardprint/DialogJob.h"
#include "dialog/PrinterList.h"

namespace cardpanels::cardprint {

/// What stands above a job's panels: the printer, how many cards, their size, and how documents lie
/// on them.
class JobHeader : public Gtk::Grid {
 public:
  /// What the user can ask for besides.
  struct Actions {
    std::function<void(const std::string& queue)> changePrinter;
    std::function<void()> openPrinters;  // the list of printers opens
    std::function<void()> showOtherOptions;
    std::function<void()> attributesChanged;
  };

  explicit JobHeader(Actions actions);

  /// The captions, with their mnemonics.
  static std::vector<std::string> captions();

  /// Shows `job` from now on, which must outlive its place here.
  void showJob(DialogJob& job);

  /// Shows what has become of the job's options and copies.
  void refresh();

  /// Shows these printers.
  void showPrinters(const std::vector<dialog::PrinterRow>& rows);

 private:
  void addRow(int row, int column, Gtk::Label& label, Gtk::Widget& widget);
  void attributeChosen(const std::function<void()>& set);
  void chooseSize(const std::string& size);

  Actions actions_;
  DialogJob* job_ = nullptr;
  bool isShowing_ = false;  // what the program sets is no user's choice
  ChoiceBox printer_;
  ChoiceBox size_;
  ChoiceBox orientation_;
  Gtk::CheckButton fit_;
  Gtk::SpinButton copies_;
  Gtk::Button others_;
  Gtk::Label printerLabel_;
  Gtk::Label sizeLabel_;
  Gtk::Label orientationLabel_;
  Gtk::Label copiesLabel_;
};

}  // namespace cardpanels::cardprint
