#pragma once

#include <gtk/gtk.h>
#include <gtkmm/container.h>

namespace cardpanels::gtk3 {

/// Takes all out of `container`. `Gtk::Container::remove` would keep a reference to a managed child
/// for good.
inline void removeChildren(Gtk::Container& container) {
  for (Gtk::Widget* child : container.get_children()) {
    gtk_container_remove(container.gobj(), child->gobj());
  }
}

}  // namespace cardpanels::gtk3
