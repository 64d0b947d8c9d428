#pragma once

#include <gtk/gtk.h>
#include <gtkmm/bin.h>

namespace cardpanels::gtk3 {

/// Takes the child out of `bin`, if there is one. `Gtk::Bin::remove` would keep a reference to a
/// managed child for good.
inline void removeChild(Gtk::Bin& bin) {
  GtkWidget* const child = gtk_bin_get_child(bin.gobj());
  if (child != nullptr) gtk_container_remove(GTK_CONTAINER(bin.gobj()), child);
}

}  // namespace cardpanels::gtk3
