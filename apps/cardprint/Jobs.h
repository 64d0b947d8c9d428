#pragma once

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/Waiter.h"

namespace cardpanels::cardprint {

/// Prints a job for each file or each line of the list that `arguments` name: all of them are
/// judged before the first is sent, and what is wrong with any goes to standard error. Answers the
/// exit status. Throws `host::Error` where none can be printed, and `Cancelled`.
int printJobs(const Arguments& arguments, Waiter& waiter);

}  // namespace cardpanels::cardprint
