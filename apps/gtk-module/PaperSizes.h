#pragma once

#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>

/// The print dialog's list of paper sizes, a combo box in GTK 3 and a drop-down in GTK 4. Each row
/// has a page setup, but for separators and what opens windows.
namespace cardpanels::gtkmodule {

/// The signal that tells that another row of `list` was selected.
inline const char* selectionSignal(GtkWidget* list) {
  return GTK_IS_COMBO_BOX(list) ? "changed" : "notify::selected";
}

/// Selects the first row of `list` whose page setup `fits`; does nothing when there is none.
template <class Fits>
void selectPageSetup(GtkWidget* list, Fits&& fits) {
#if GTK_CHECK_VERSION(4, 0, 0)
  if (!GTK_IS_DROP_DOWN(list)) return;
  GListModel* const model = gtk_drop_down_get_model(GTK_DROP_DOWN(list));
  const guint count = model == nullptr ? 0 : g_list_model_get_n_items(model);
  for (guint row = 0; row + 1 < count; ++row) {  // the last one opens a window
    gpointer object = g_list_model_get_item(model, row);
    const bool found = GTK_IS_PAGE_SETUP(object) && fits(GTK_PAGE_SETUP(object));
    g_object_unref(object);
    if (found) return gtk_drop_down_set_selected(GTK_DROP_DOWN(list), row);
  }
#else
  if (!GTK_IS_COMBO_BOX(list)) return;
  GtkTreeModel* const model = gtk_combo_box_get_model(GTK_COMBO_BOX(list));
  if (model == nullptr) return;
  if (g_type_is_a(gtk_tree_model_get_column_type(model, 0), G_TYPE_OBJECT) == FALSE) return;
  GtkTreeIter row;
  for (gboolean has = gtk_tree_model_get_iter_first(model, &row); has != FALSE;
       has = gtk_tree_model_iter_next(model, &row)) {
    gpointer object = nullptr;
    gtk_tree_model_get(model, &row, 0, &object, -1);
    const bool found = GTK_IS_PAGE_SETUP(object) && fits(GTK_PAGE_SETUP(object));
    g_clear_object(&object);
    if (found) return gtk_combo_box_set_active_iter(GTK_COMBO_BOX(list), &row);
  }
#endif
}

}  // namespace cardpanels::gtkmodule
