#pragma once

#include <string>
#include <vector>

#include "host/Destination.h"
#include "host/PPDFile.h"
#include "host/Queue.h"
#include "host/Terms.h"

namespace cardpanels::host {

/// A queue as it is at this moment.
struct FetchedQueue {
  Destination destination;
  PPDFile ppd;
  std::string ppdText;               // byte by byte
  std::vector<std::string> leftOut;  // what some printers of a class lack, by title
};

/// Asks the print server for `name` and its PPD. A queue that passes its jobs on to another print
/// server's, with their options, has the PPD from there when its own knows no card options. A class
/// has what its queues have in common. Each server is waited for as long as `terms` say. Throws
/// `Error` when there is no queue or no PPD, or none can be had, and `PasswordNeeded`.
FetchedQueue fetchQueue(const QueueName& name, const Terms& terms);

}  // namespace cardpanels::host
