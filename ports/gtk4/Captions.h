#pragma once

#include <gtkmm/widget.h>

#include "dialog/Captions.h"

namespace cardpanels::gtk4 {

/// Gives the labels in `top`, the widgets of a user-interface file, their texts and mnemonics, and
/// the controls the names that assistive technology tells.
void giveCaptions(Gtk::Widget& top, const dialog::Captions& captions);

}  // namespace cardpanels::gtk4
