#include "ports/gtk4/AccessibleName.h"

#include <gtk/gtk.h>

namespace cardpanels::gtk4 {
namespace {

constexpr const char* kName = "cardpanels-accessible-name";
constexpr const char* kDescription = "cardpanels-accessible-description";

void setProperty(GtkWidget* widget, const char* key, GtkAccessibleProperty property,
                 const std::string& text) {
  g_object_set_data_full(G_OBJECT(widget), key, g_strdup(text.c_str()), g_free);
  gtk_accessible_update_property(GTK_ACCESSIBLE(widget), property, text.c_str(), -1);
}

std::string kept(const Gtk::Widget& widget, const char* key) {
  const auto* const text = static_cast<const char*>(
      g_object_get_data(G_OBJECT(const_cast<GtkWidget*>(widget.gobj())), key));
  return text == nullptr ? "" : text;
}

/// The same for `widget` and, of a pop-up, for the button inside.
void setOnButtonsToo(GtkWidget* widget, const char* key, GtkAccessibleProperty property,
                     const std::string& text) {
  setProperty(widget, key, property, text);
  if (!GTK_IS_DROP_DOWN(widget) && !GTK_IS_MENU_BUTTON(widget)) return;
  for (GtkWidget* each = gtk_widget_get_first_child(widget); each != nullptr;
       each = gtk_widget_get_next_sibling(each)) {
    if (GTK_IS_TOGGLE_BUTTON(each)) setProperty(each, key, property, text);
  }
}

}  // namespace

void setAccessibleName(Gtk::Widget& widget, const std::string& name) {
  // A label with a mnemonic would be told too.
  gtk_accessible_reset_relation(GTK_ACCESSIBLE(widget.gobj()), GTK_ACCESSIBLE_RELATION_LABELLED_BY);
  setOnButtonsToo(widget.gobj(), kName, GTK_ACCESSIBLE_PROPERTY_LABEL, name);
}

std::string accessibleName(const Gtk::Widget& widget) { return kept(widget, kName); }

void setAccessibleDescription(Gtk::Widget& widget, const std::string& text) {
  setOnButtonsToo(widget.gobj(), kDescription, GTK_ACCESSIBLE_PROPERTY_DESCRIPTION, text);
}

std::string accessibleDescription(const Gtk::Widget& widget) { return kept(widget, kDescription); }

}  // namespace cardpanels::gtk4
