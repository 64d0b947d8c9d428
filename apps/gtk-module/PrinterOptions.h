#pragma once

#include <gtk/gtk.h>

#include <cstring>

#include "apps/gtk-module/Widgets.h"

extern "C" {
// GTK's, for its print backends; in no header that is installed, so they may be missing one day.
__attribute__((weak)) GObject* gtk_printer_option_new(const char* name, const char* text, int type);
__attribute__((weak)) void gtk_printer_option_set_add(GObject* set, GObject* option);
}

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

/// The set that the dialog keeps `option` in, borrowed; null when it is in none. What it has is in
/// the dialog's settings.
inline GObject* optionSetOf(GObject* option) {
  const GType type = g_type_from_name("GtkPrinterOptionSet");
  const guint changed = type == G_TYPE_INVALID ? 0 : g_signal_lookup("changed", type);
  if (changed == 0) return nullptr;
  // The set says itself that one of its options has changed.
  GObject* set = nullptr;
  const gulong hook = g_signal_add_emission_hook(
      changed, 0,
      [](GSignalInvocationHint*, guint, const GValue* values, gpointer found) -> gboolean {
        *static_cast<GObject**>(found) = static_cast<GObject*>(g_value_get_object(values));
        return TRUE;
      },
      &set, nullptr);
  g_signal_emit_by_name(option, "changed");
  g_signal_remove_emission_hook(changed, hook);
  return set;
}

/// A new option with that name and value, the caller's, in `set`; it takes any value. Null where
/// GTK has no such functions.
inline GObject* addOption(GObject* set, const char* name, const char* value) {
  if (gtk_printer_option_new == nullptr || gtk_printer_option_set_add == nullptr) return nullptr;
  constexpr int kAnyValue = 0;  // GTK's type of a check mark, whose values it does not look at
  GObject* const option = gtk_printer_option_new(name, "", kAnyValue);
  g_object_set(option, "value", value, nullptr);
  gtk_printer_option_set_add(set, option);
  return option;
}

}  // namespace cardpanels::gtkmodule
