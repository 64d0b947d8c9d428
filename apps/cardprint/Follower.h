#pragma once

#include <string>
#include <vector>

#include "host/PrintServer.h"

namespace cardpanels::cardprint {

/// The program's own option, with the numbers of jobs and blanks between them: it shows no dialog,
/// and notifies the user of what becomes of the jobs.
inline constexpr const char* kFollow = "follow";

/// Starts this program once more, which follows the jobs `ids` of `queue` on `server` and outlives
/// this one. Where it cannot be started, nobody is notified.
void startFollower(const host::ServerChoice& server, const std::string& queue,
                   const std::vector<int>& ids);

}  // namespace cardpanels::cardprint
