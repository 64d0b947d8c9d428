#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <memory>
#include <string>

#include "apps/gtk-module/UnixPrintDialog.h"
#include "apps/gtk3-module/StatusBar.h"
#include "ports/gtk3/CardPage.h"

namespace cardpanels::gtk3module {

/// GTK 3's print dialog.
class GtkPrintDialog final : public gtkmodule::UnixPrintDialog {
 public:
  using UnixPrintDialog::UnixPrintDialog;
  ~GtkPrintDialog() override;

  void showText(const std::string& text) override;
  dialog::Page& showPanels(host::PanelHost& panels) override;
  void removePage() override;

 private:
  GtkWidget* newTab();
  GtkWidget* emptyPage();
  GtkNotebook* notebook() const;
  void describeTab(const std::string& text);
  void openPage();
  void tellStatus() override;

  GtkWidget* page_ = nullptr;  // the notebook's child
  GtkWidget* sign_ = nullptr;  // in its tab
  StatusBar statusBar_{GTK_DIALOG(dialog()), [this] { openPage(); }};
  std::unique_ptr<gtk3::CardPage> cardPage_;
};

}  // namespace cardpanels::gtk3module
