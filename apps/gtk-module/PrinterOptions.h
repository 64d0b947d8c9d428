#pragma once

#include <gtk/gtk.h>

#include <cstring>

#include "apps/gtk-module/Widgets.h"

/// The objects of GTK's print dialog that hold the values of the printer's options. They are GTK's
/// own: their types, properties and signals are found by name at run time.
namespace cardpanels::gtkmodule {

/// What the dialog puts before the PPD's keyword in an option's name.
constexpr const char* kOptionPrefix = "cups-";

/// Calls `visit` with the widget and the option that it shows, both borrowed, for each option below
/// `widget`. Options and widgets live until the dialog changes its printer.
template <class Visit>
void forEachPrinterOption(GtkWidget* widget, Visit&& visit) {
  const GType type = g_type_from_name("GtkPrinterOptionWidget");
  if (type == G_TYPE_INVALID) return;
  forEachWidget(widget, [&](GtkWidget* each) {
    if (!g_type_is_a(G_OBJECT_TYPE(each), type)) return;
    GObject* option = nullptr;
    g_object_get(each, "source", &option, nullptr);
    if (option == nullptr) return;
    visit(each, option);
    g_object_unref(option);
  });
}

/// The option's name, the option's own; null where GTK keeps it elsewhere.
inline const char* optionName(GObject* option) {
  GTypeQuery type;
  g_type_query(G_OBJECT_TYPE(option), &type);
  if (type.instance_size < sizeof(GObject) + sizeof(char*)) return nullptr;
  const char* name = nullptr;  // the first field, which no property gives
  std::memcpy(&name, reinterpret_cast<const char*>(option) + sizeof(GObject), sizeof(name));
  return name;
}

}  // namespace cardpanels::gtkmodule
