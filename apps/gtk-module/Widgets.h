#pragma once

#include <gtk/gtk.h>

#include <algorithm>
#include <initializer_list>
#include <type_traits>

/// The tree of widgets, which GTK 3 and GTK 4 keep in different ways.
namespace cardpanels::gtkmodule {

/// Whether `object` is of one of these types, or of one that is made from it; null is of none.
inline bool isOneOf(gpointer object, std::initializer_list<GType> types) {
  return object != nullptr && std::any_of(types.begin(), types.end(), [object](GType each) {
           return g_type_is_a(G_OBJECT_TYPE(object), each) != FALSE;
         });
}

/// Calls `visit` for each child of `widget`, in GTK 3 but for those that GTK keeps to itself.
template <class Visit>
void forEachChild(GtkWidget* widget, Visit&& visit) {
#if GTK_CHECK_VERSION(4, 0, 0)
  GtkWidget* next = nullptr;
  for (GtkWidget* each = gtk_widget_get_first_child(widget); each != nullptr; each = next) {
    next = gtk_widget_get_next_sibling(each);
    visit(each);
  }
#else
  if (!isOneOf(widget, {GTK_TYPE_CONTAINER})) return;
  gtk_container_foreach(
      GTK_CONTAINER(widget),
      [](GtkWidget* child, gpointer data) {
        (*static_cast<std::remove_reference_t<Visit>*>(data))(child);
      },
      &visit);
#endif
}

/// Calls `visit` for `widget` and all that is inside it.
template <class Visit>
void forEachWidget(GtkWidget* widget, Visit&& visit) {
  visit(widget);
  forEachChild(widget, [&visit](GtkWidget* child) { forEachWidget(child, visit); });
}

/// What GTK's description of a dialog calls `widget`; null for what has no name there.
inline const char* buildableName(GtkWidget* widget) {
#if GTK_CHECK_VERSION(4, 0, 0)
  return gtk_buildable_get_buildable_id(GTK_BUILDABLE(widget));
#else
  return gtk_buildable_get_name(GTK_BUILDABLE(widget));
#endif
}

}  // namespace cardpanels::gtkmodule
