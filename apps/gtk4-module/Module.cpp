#include <dlfcn.h>
#include <gio/gio.h>
#include <gtk/gtk.h>

#include "apps/gtk-module/DialogWatch.h"

// GTK 4 takes this for a print backend, and opens it when it makes the first print dialog.

using namespace cardpanels;

namespace {

/// GTK 3 and GTK 4 have types of the same names: in one process they would take each other's.
bool hasGtk3() {
  void* const library = dlopen("libgtk-3.so.0", RTLD_LAZY | RTLD_NOLOAD);
  if (library != nullptr) dlclose(library);
  return library != nullptr;
}

}  // namespace

extern "C" {

/// Called by GIO, each time that it opens the module.
G_MODULE_EXPORT void g_io_module_load(GIOModule* module) {
  static bool watching = false;
  if (watching) return;
  if (hasGtk3()) {
    g_message("cardpanels: no page Card in a program that has GTK 3 besides GTK 4");
    return;
  }
  watching = true;
  // GIO closes a module that brings no type, but the hook stays.
  if (module != nullptr) g_type_module_use(G_TYPE_MODULE(module));
  gtkmodule::findPageLibrary("libcardpanels-gtk4-page.so");
  g_type_class_ref(GTK_TYPE_WIDGET);
  g_signal_add_emission_hook(g_signal_lookup("realize", GTK_TYPE_WIDGET), 0,
                             gtkmodule::widgetAppears, nullptr, nullptr);
}

G_MODULE_EXPORT void g_io_module_unload(GIOModule* /*module*/) {}

/// The extension points for which the module is to be opened; the caller frees them.
G_MODULE_EXPORT char** g_io_module_query() {
  const char* points[] = {"gtk-print-backend", nullptr};
  return g_strdupv(const_cast<char**>(points));
}
}
