#pragma once

#include <set>
#include <string>

#include "host/Terms.h"

/// What a job can carry besides the options of the printer's PPD: `copies`, `fit-to-page`, …
namespace cardpanels::host {

/// Whether libcups knows `key` as something that goes out with a job, or the filters of CUPS take
/// it. Asks no server.
bool isJobAttribute(const std::string& key);

/// What else the print server says that jobs for `queue` can carry. Throws `Error`.
std::set<std::string> supportedJobAttributes(const std::string& queue, const Terms& terms = {});

}  // namespace cardpanels::host
