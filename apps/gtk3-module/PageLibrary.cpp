#include "apps/gtk-module/PageLibrary.h"

#include <gtkmm/main.h>

#include "apps/gtk-module/WatchedDialogs.h"
#include "apps/gtk3-module/GtkPrintDialog.h"
#include "ports/gtk3/GtkBundle.h"

namespace cardpanels::gtk3module {
namespace {

struct Toolkit {
  using Dialog = GtkPrintDialog;
  using Bundle = gtk3::GtkBundle;
  static constexpr const char* textDomain = "gtk30";
};

}  // namespace
}  // namespace cardpanels::gtk3module

void cardpanelsShowPrinter(GtkWidget* dialog, const char* printer) {
  using namespace cardpanels;
  gtkmodule::shielded([&] {
    Gtk::Main::init_gtkmm_internals();
    gtkmodule::WatchedDialogs<gtk3module::Toolkit>::all().showPrinter(
        dialog, printer == nullptr ? "" : printer);
  });
}
