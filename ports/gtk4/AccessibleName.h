#pragma once

#include <gtkmm/widget.h>

#include <string>

namespace cardpanels::gtk4 {

/// What assistive technology calls `widget`; of a pop-up also the button inside, which has the
/// focus and is what is told then.
void setAccessibleName(Gtk::Widget& widget, const std::string& name);

/// The name that `setAccessibleName` gave; "" without one. GTK keeps its own to itself.
std::string accessibleName(const Gtk::Widget& widget);

/// What assistive technology tells of `widget` besides, of a pop-up as of the name.
void setAccessibleDescription(Gtk::Widget& widget, const std::string& text);
std::string accessibleDescription(const Gtk::Widget& widget);

}  // namespace cardpanels::gtk4
