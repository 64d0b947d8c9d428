#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

#include "apps/gtk-module/Widgets.h"

/// The print dialog's list of paper sizes, a combo box in GTK 3 and a drop-down in GTK 4. Each row
/// has a page setup, but for separators and what opens windows.
namespace cardpanels::gtkmodule {

#if GTK_CHECK_VERSION(4, 0, 0)

inline GType paperListType() { return GTK_TYPE_DROP_DOWN; }

/// What tells that another row was selected.
constexpr const char* kPaperSignal = "notify::selected";

/// Selects the first row of `list` whose page setup `fits`; does nothing when there is none.
template <class Fits>
void selectPageSetup(GtkWidget* list, Fits&& fits) {
  GListModel* const model = gtk_drop_down_get_model(GTK_DROP_DOWN(list));
  const guint count = model == nullptr ? 0 : g_list_model_get_n_items(model);
  for (guint row = 0; row + 1 < count; ++row) {  // the last one opens a window
    gpointer object = g_list_model_get_item(model, row);
    const bool found = isOneOf(object, {GTK_TYPE_PAGE_SETUP}) && fits(GTK_PAGE_SETUP(object));
    g_object_unref(object);
    if (found) return gtk_drop_down_set_selected(GTK_DROP_DOWN(list), row);
  }
}

#else

inline GType paperListType() { return GTK_TYPE_COMBO_BOX; }

/// What tells that another row was selected.
constexpr const char* kPaperSignal = "changed";

/// Selects the first row of `list` whose page setup `fits`; does nothing when there is none.
template <class Fits>
void selectPageSetup(GtkWidget* list, Fits&& fits) {
  GtkTreeModel* const model = gtk_combo_box_get_model(GTK_COMBO_BOX(list));
  if (model == nullptr) return;
  if (g_type_is_a(gtk_tree_model_get_column_type(model, 0), G_TYPE_OBJECT) == FALSE) return;
  GtkTreeIter row;
  for (gboolean has = gtk_tree_model_get_iter_first(model, &row); has != FALSE;
       has = gtk_tree_model_iter_next(model, &row)) {
    gpointer object = nullptr;
    gtk_tree_model_get(model, &row, 0, &object, -1);
    const bool found = isOneOf(object, {GTK_TYPE_PAGE_SETUP}) && fits(GTK_PAGE_SETUP(object));
    g_clear_object(&object);
    if (found) return gtk_combo_box_set_active_iter(GTK_COMBO_BOX(list), &row);
  }
}

#endif

}  // namespace cardpanels::gtkmodule
