#pragma once

#include <gtkmm/window.h>

#include <optional>

#include "host/Terms.h"

namespace cardpanels::cardprint {

/// Asks the user in a window on top of `parent`, which may be null, for the login that is `needed`.
/// Nothing when they cancel.
std::optional<host::Login> askedInWindow(const host::PasswordNeeded& needed, Gtk::Window* parent);

}  // namespace cardpanels::cardprint
