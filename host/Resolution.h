#pragma once

#include <cups/ppd.h>

#include <set>
#include <vector>

#include "host/Marks.h"

namespace cardpanels::host {

/// Changes the marks of other options, as the PPD's constraints ask, until `option` is in no
/// conflict; `partners` are those that it conflicts with now. Page sizes are never changed, and
/// conflicts that `option` has no part in stay as they are. Nor are those of `kept` changed, which
/// `option` is among. False when that cannot be; what is marked then is left to the caller to
/// restore.
bool resolve(Marks& marks, const ppd_option_t& option, const std::vector<ppd_option_t*>& partners,
             const std::set<const ppd_option_t*>& kept);

}  // namespace cardpanels::host
