#pragma once

#include <gtkmm/entry.h>

#include "platform/Text.h"

namespace cardpanels::gtk3 {

/// Marks `entry` as wrong and tells `why`, also to assistive technology; without `why` it is right,
/// and its tooltip tells `help`.
void markEntry(Gtk::Entry& entry, const platform::Text& why, const Glib::ustring& help = {});

}  // namespace cardpanels::gtk3
