#pragma once

#include <gtkmm/widget.h>
#include <gtkmm/window.h>

namespace cardpanels::gtk3 {

/// What `widget` would like to be wide, in pixels, if all that is hidden in it now were shown.
int widthWithHidden(Gtk::Widget& widget);

/// What a window may cover on the monitor of `window`, or on the first one before it has any.
Gdk::Rectangle workArea(Gtk::Window& window);

/// How much larger than usual the user wants text.
double textScale();

}  // namespace cardpanels::gtk3
