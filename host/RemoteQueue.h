#pragma once

#include <optional>
#include <string>

#include "host/PrintServer.h"

namespace cardpanels::host {

/// A queue, or a class, of another print server.
struct RemoteQueue {
  ServerChoice server;
  std::string path;  // at that server, as `/printers/card`
};

/// The queue that a queue with the device `uri` passes its jobs on to; nothing when that is no
/// CUPS queue's address.
std::optional<RemoteQueue> remoteQueueOf(const std::string& uri);

}  // namespace cardpanels::host
