#pragma once

#include <libintl.h>

#include "platform/StringTable.h"

namespace cardpanels::gtk3 {

/// `text` in the user's language, itself when there is no translation.
inline const char* tr(const char* text) { return dgettext(platform::StringTable::kDomain, text); }

}  // namespace cardpanels::gtk3
