#pragma once

#include <gtkmm/widget.h>
#include <gtkmm/window.h>

namespace cardpanels::gtk4 {

/// What `widget` would like to be wide, in pixels.
int naturalWidth(const Gtk::Widget& widget);

/// The same if all that is hidden in it now were shown.
int widthWithHidden(Gtk::Widget& widget);

/// How wide the monitor of `window` is, in pixels; 0 when that is not known.
int monitorWidth(Gtk::Window& window);

}  // namespace cardpanels::gtk4
