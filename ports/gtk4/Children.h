#pragma once

#include <gtkmm/widget.h>

namespace cardpanels::gtk4 {

/// Calls `visit` for each child of `widget`, also for those that are parts of it.
template <class Visit>
void forEachChild(Gtk::Widget& widget, const Visit& visit) {
  for (Gtk::Widget* each = widget.get_first_child(); each != nullptr;) {
    Gtk::Widget* const next = each->get_next_sibling();
    visit(*each);
    each = next;
  }
}

/// Takes all out of `container`.
template <class Container>
void removeChildren(Container& container) {
  forEachChild(container, [&container](Gtk::Widget& child) { container.remove(child); });
}

}  // namespace cardpanels::gtk4
