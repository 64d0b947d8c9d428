#pragma once

#include <string>
#include <vector>

#include "dialog/Page.h"
#include "host/JobOption.h"
#include "host/PanelHost.h"

namespace cardpanels::dialog {

/// A print dialog of the system's toolkit, which shows the options of one printer at a time and has
/// room for a page of ours. Option keys are the PPD's keywords.
class PrintDialog {
 public:
  PrintDialog() = default;
  PrintDialog(const PrintDialog&) = delete;
  PrintDialog& operator=(const PrintDialog&) = delete;
  virtual ~PrintDialog();

  /// The printer's options that the dialog has controls for or was given, with the values that it
  /// would print with; without those that it would leave out of the job. A custom value may stand
  /// there with or without `Custom.` in front. An empty value is one that the dialog has lost.
  virtual std::vector<host::Option> options() const = 0;

  /// The PPD's keyword of the chosen page size; empty when there is none.
  virtual std::string pageSize() const = 0;

  /// Chooses the page size of that keyword, as the user would. The dialog may not have it:
  /// `pageSize` tells.
  virtual void setPageSize(const std::string& size) = 0;

  /// How many copies are chosen, as a job carries it; "1" where the dialog does not ask for them.
  virtual std::string copies() const = 0;
  virtual void setCopies(const std::string& copies) = 0;

  /// Sets an option. The dialog may ignore it: `options` tells.
  virtual void set(const host::Option& option) = 0;

  /// Gives the dialog options that its own PPD of the printer lacks, with their values: it prints
  /// with them, `set` sets them and `options` tells them as those that it has controls for, until
  /// the dialog makes controls for another printer. Those that it has controls for stay as they
  /// are.
  virtual void addOptions(const std::vector<host::Option>& options) = 0;

  /// Shows the page with nothing but `text`.
  virtual void showText(const std::string& text) = 0;

  /// Shows the page with `panels`, which live until `removePage`, and hides the dialog's own
  /// controls of what they claim until the dialog makes new ones for another printer. Answers the
  /// page, which stays the dialog's until then.
  virtual Page& showPanels(host::PanelHost& panels) = 0;

  /// Shows what the user must know whatever of the dialog they look at, with a sign at the page's
  /// tab, and keeps them from printing while something is wrong.
  virtual void showStatus(const PageStatus& status) = 0;

  /// Takes the page away, if there is one.
  virtual void removePage() = 0;
};

}  // namespace cardpanels::dialog
