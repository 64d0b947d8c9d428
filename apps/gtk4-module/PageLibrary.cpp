#include "apps/gtk-module/PageLibrary.h"

#include <gtkmm/init.h>

#include "apps/gtk-module/WatchedDialogs.h"
#include "apps/gtk4-module/GtkPrintDialog.h"
#include "ports/gtk4/GtkBundle.h"

namespace cardpanels::gtk4module {
namespace {

struct Toolkit {
  using Dialog = GtkPrintDialog;
  using Bundle = gtk4::GtkBundle;
  static constexpr const char* textDomain = "gtk40";
};

}  // namespace
}  // namespace cardpanels::gtk4module

void cardpanelsShowPrinter(GtkWidget* dialog, const char* printer) {
  using namespace cardpanels;
  gtkmodule::shielded([&] {
    Gtk::init_gtkmm_internals();
    gtkmodule::WatchedDialogs<gtk4module::Toolkit>::all().showPrinter(
        dialog, printer == nullptr ? "" : printer);
  });
}
