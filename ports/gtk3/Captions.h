#pragma once

#include <gtkmm/widget.h>

#include <functional>

#include "dialog/Captions.h"

namespace cardpanels::gtk3 {

/// Gives the labels in `top`, the widgets of a user-interface file, their texts and mnemonics, and
/// the controls the names that assistive technology tells.
void giveCaptions(Gtk::Widget& top, const dialog::Captions& captions);

using Visit = std::function<void(AtkObject* part)>;

/// Visits what assistive technology knows of `control`: itself, and the button inside a pop-up,
/// which has the focus and is what is told then.
void forEachAccessible(Gtk::Widget& control, const Visit& visit);

}  // namespace cardpanels::gtk3
