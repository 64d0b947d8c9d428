#pragma once

#include <string>
#include <vector>

namespace cardpanels::host {
class JobOptions;
}

namespace cardpanels::dialog {

/// Why what `job` has for the option `key` is no area of four measurements, in a sentence; "" when
/// it is one, when there is none, and when `key` is no area's.
std::string areaFault(const host::JobOptions& job, const std::string& key);

/// The same for all areas.
std::vector<std::string> areaFaults(const host::JobOptions& job);

}  // namespace cardpanels::dialog
