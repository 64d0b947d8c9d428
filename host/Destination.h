#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/Queue.h"
#include "host/Talk.h"
#include "platform/Text.h"

namespace cardpanels::host {

/// What a job for a queue starts from.
struct Destination {
  QueueName name;
  /// The server's defaults of the queue, and over them what the user and the administrator have
  /// saved.
  OptionList options;
  std::vector<std::string> members;        // the queues of a class
  std::string device;                      // where the server sends its jobs; "" for a class
  platform::Text media = {};               // what the server adds to jobs that have none
  std::vector<Option> serverOptions = {};  // all of that
};

/// Asks for `name`; when its queue is empty, for the default, whatever its instance. Throws `Error`
/// when there is no such queue or instance.
Destination destinationOf(Talk& talk, const QueueName& name);

/// What `destination` gives to a job besides the options of its PPD `ppd`.
JobBasis basisOf(const Destination& destination, ppd_file_t* ppd);

}  // namespace cardpanels::host
