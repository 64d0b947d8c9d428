#include <gmodule.h>
#include <gtk/gtk.h>

#include "apps/gtk-module/DialogWatch.h"

// Every GTK 3 program loads this.

using namespace cardpanels;

extern "C" {

/// Called by GModule. A module that a setting named may be closed again, the hook may not.
G_MODULE_EXPORT const char* g_module_check_init(GModule* module) {
  g_module_make_resident(module);
  gtkmodule::findPageLibrary("libcardpanels-gtk3-page.so");
  return nullptr;
}

/// Called by GTK.
G_MODULE_EXPORT void gtk_module_init(int* /*argc*/, char*** /*argv*/) {
  static bool watching = false;
  if (watching) return;
  watching = true;
  g_type_class_ref(GTK_TYPE_WIDGET);
  g_signal_add_emission_hook(g_signal_lookup("show", GTK_TYPE_WIDGET), 0, gtkmodule::widgetAppears,
                             nullptr, nullptr);
}
}
