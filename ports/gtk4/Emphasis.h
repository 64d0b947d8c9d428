#pragma once

#include <gtkmm/label.h>

#include <set>
#include <string>

namespace cardpanels::gtk4 {

void makeBold(Gtk::Label& label, bool bold);

/// Makes the captions of these options bold at and below `widget`, and no others: a user-interface
/// file gives an option's caption the name `title-KEYWORD`.
void emphasizeCaptions(Gtk::Widget& widget, const std::set<std::string>& keys);

/// Makes the captions of all options bold there.
void emphasizeAllCaptions(Gtk::Widget& widget);

}  // namespace cardpanels::gtk4
