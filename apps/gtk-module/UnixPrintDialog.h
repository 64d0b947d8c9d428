#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "apps/gtk-module/PrintGuard.h"
#include "dialog/PrintDialog.h"

namespace cardpanels::gtkmodule {

/// What the print dialogs of GTK 3 and GTK 4 have in common: all but the page and the bar.
class UnixPrintDialog : public dialog::PrintDialog {
 public:
  /// Over `dialog`, which must outlive this, or emit `destroy` no later than this is destroyed.
  explicit UnixPrintDialog(GtkPrintUnixDialog* dialog);
  ~UnixPrintDialog() override;

  /// Called from the main loop, some time after options, the page size or the copies have changed.
  void setChanged(std::function<void()> changed) { changed_ = std::move(changed); }

  /// Whether GTK's own sign that options conflict is wrong, asked when it appears.
  void setConflictDenied(std::function<bool()> denied) { conflictDenied_ = std::move(denied); }

  /// To be called when the dialog has made the controls of another printer.
  void controlsReplaced();

  std::vector<host::Option> options() const override;
  std::string pageSize() const override;
  void setPageSize(const std::string& size) override;
  std::string copies() const override;
  void setCopies(const std::string& copies) override;
  void set(const host::Option& option) override;
  void addOptions(const std::vector<host::Option>& options) override;
  void showStatus(const dialog::PageStatus& status) override;

 protected:
  GtkPrintUnixDialog* dialog() const { return dialog_; }

  /// Hides the dialog's own controls of these options, and what is empty then around them.
  void hideControls(const std::set<std::string>& keys);

  /// What `showStatus` was told last.
  const dialog::PageStatus& status() const { return status_; }

  /// Shows `status` at the foot of the dialog and at the page's tab.
  virtual void tellStatus() = 0;

 private:
  /// One of the dialog's options.
  class Control;

  void forgetControls();
  GObject* optionSet() const;
  void changeLater();
  void denyConflict();

  GtkPrintUnixDialog* dialog_;
  std::vector<std::unique_ptr<Control>> controls_;
  // Null where GTK calls them otherwise.
  GtkWidget* conflictSign_;
  GtkWidget* paperSizes_;
  GtkWidget* copies_;
  PrintGuard guard_;
  dialog::PageStatus status_;
  std::function<void()> changed_;
  std::function<bool()> conflictDenied_;
  guint changeSource_ = 0;
};

}  // namespace cardpanels::gtkmodule
