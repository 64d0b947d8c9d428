#pragma once

#include <cups/ppd.h>

#include <string>
#include <vector>

#include "apps/cardprint/Waiter.h"

namespace cardpanels::cardprint {

/// Waits until all jobs `ids` of `queue` have ended, and answers whether all were printed. What
/// became of each other one goes to standard error, and meanwhile, in the words of `ppd`, what
/// stops the printer. Throws `Cancelled`.
bool waitForJobs(const std::string& queue, const std::vector<int>& ids, ppd_file_t* ppd,
                 Waiter& waiter);

}  // namespace cardpanels::cardprint
