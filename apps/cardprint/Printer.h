#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/Waiter.h"
#include "host/PPDFile.h"
#include "host/Queue.h"
#include "platform/Text.h"

namespace cardpanels::cardprint {

/// Where a job's PPD comes from.
struct Printer {
  std::string name;       // for people
  host::QueueName queue;  // empty for a PPD file alone
  std::vector<host::Option> savedOptions;
  host::PPDFile ppd;
  platform::Text ppdText;                        // as the queue had it
  std::optional<host::JobBasis> basis;           // of the queue
  std::vector<host::Option> serverOptions = {};  // what the server adds to jobs without them
  std::string differences = {};                  // of a class's printers, a sentence; "" for none
};

/// Opens the PPD or the queue of the command line. Throws `host::Error`, and `Cancelled`.
Printer openedPrinter(const Arguments& arguments, Waiter& waiter);

}  // namespace cardpanels::cardprint
