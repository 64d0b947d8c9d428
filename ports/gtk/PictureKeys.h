#pragma once

#include <glib.h>

#include "dialog/CardPicture.h"

namespace cardpanels::gtk {

/// Hands a key that is pressed, with GDK's modifiers `state`, on to `picture`. Whether it did
/// something there; else it is for others.
bool pressKey(dialog::CardPicture& picture, guint key, guint state);

}  // namespace cardpanels::gtk
