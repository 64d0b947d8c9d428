#pragma once

#include <cups/ppd.h>

#include <vector>

#include "host/Marks.h"

/// What the PPD's constraints say about the marks as they are.
namespace cardpanels::host {

/// How many constraints are violated.
int conflictCount(const Marks& marks);

/// How many of them `option` takes part in.
int conflictCount(const Marks& marks, const ppd_option_t& option);

/// The options that share a violated constraint with `option`, in the PPD's order. A conflict among
/// other options does not count.
std::vector<ppd_option_t*> conflictsWith(const Marks& marks, const ppd_option_t& option);

/// Every option that takes part in a conflict, in the PPD's order.
std::vector<ppd_option_t*> conflictedOptions(const Marks& marks);

}  // namespace cardpanels::host
