#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include <memory>
#include <string>

#include "apps/gtk-module/UnixPrintDialog.h"
#include "apps/gtk4-module/StatusBar.h"
#include "ports/gtk4/CardPage.h"

namespace cardpanels::gtk4module {

/// GTK 4's print dialog.
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

  GtkWidget* page_ = nullptr;  // the notebook's child, kept
  GtkWidget* sign_ = nullptr;  // in its tab, kept
  StatusBar statusBar_{GTK_DIALOG(dialog()), [this] { openPage(); }};
  std::unique_ptr<gtk4::CardPage> cardPage_;
};

}  // namespace cardpanels::gtk4module
