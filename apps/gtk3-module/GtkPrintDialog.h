#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "apps/gtk3-module/PrintGuard.h"
#include "apps/gtk3-module/StatusBar.h"
#include "dialog/PrintDialog.h"
#include "ports/gtk3/CardPage.h"

namespace cardpanels::gtk3module {

/// GTK 3's print dialog.
class GtkPrintDialog final : public dialog::PrintDialog {
 public:
  /// Over `dialog`, which must outlive this, or emit `destroy` no later than this is destroyed.
  explicit GtkPrintDialog(GtkPrintUnixDialog* dialog);
  ~GtkPrintDialog() override;

  /// Called from the main loop, some time after options or the page size have changed.
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
  void showText(const std::string& text) override;
  dialog::Page& showPanels(host::PanelHost& panels) override;
  void showStatus(const dialog::PageStatus& status) override;
  void removePage() override;

 private:
  /// One of the dialog's options.
  class Control;

  void forgetControls();
  GtkWidget* newTab();
  GtkWidget* emptyPage();
  void hideControls(const std::set<std::string>& keys);
  void changeLater();
  void denyConflict();
  GtkNotebook* notebook() const;
  void describeTab(const std::string& text);
  void openPage();
  void tellStatus();

  GtkPrintUnixDialog* dialog_;
  std::vector<std::unique_ptr<Control>> controls_;
  GtkWidget* conflictSign_ = nullptr;
  GtkWidget* paperSizes_ = nullptr;
  GtkWidget* copies_ = nullptr;
  GtkWidget* page_ = nullptr;  // the notebook's child
  GtkWidget* sign_ = nullptr;  // in its tab
  PrintGuard guard_;
  StatusBar statusBar_;
  dialog::PageStatus status_;
  std::unique_ptr<gtk3::CardPage> cardPage_;
  std::function<void()> changed_;
  std::function<bool()> conflictDenied_;
  guint changeSource_ = 0;
};

}  // namespace cardpanels::gtk3module
