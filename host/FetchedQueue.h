#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/Destination.h"
#include "host/PPDFile.h"
#include "host/Queue.h"
#include "host/Talk.h"
#include "host/Terms.h"

namespace cardpanels::host {

/// A queue as it is at this moment.
struct FetchedQueue {
  Destination destination;
  PPDFile ppd;
  std::string ppdText;               // byte by byte
  std::vector<std::string> leftOut;  // what some printers of a class lack, by title
  bool isElsewhere = false;          // the PPD, or one of a class's, is another server's
};

/// Asks the print server for `name` and its PPD. A queue that passes its jobs on to another print
/// server's, with their options, has the PPD from there when its own knows no card options. A class
/// has what its queues have in common. Each server is waited for as long as `terms` say. Throws
/// `Error` when there is no queue or no PPD, or none can be had, and `PasswordNeeded`.
FetchedQueue fetchQueue(const QueueName& name, const Terms& terms);

/// Whether `queue`, which is no class, has card options of another print server's PPD alone. Of any
/// other queue no more is asked than where it prints. False when a server does not tell all that;
/// both together are waited for as long as `terms` say.
bool hasCardOptionsElsewhere(const std::string& queue, const Terms& terms);

/// The PPD that the print server itself has of `queue`, byte by byte; of one of its queues when
/// that is a class. Nothing without one. Throws `Error` when it cannot be had, and
/// `PasswordNeeded`.
std::optional<std::string> localPPDText(Talk& talk, const std::string& queue);

}  // namespace cardpanels::host
