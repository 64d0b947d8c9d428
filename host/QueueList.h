#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/PrinterState.h"
#include "host/Terms.h"

namespace cardpanels::host {

/// A queue among all that the print server has.
struct ListedQueue {
  std::string name;
  PrinterState state = {};
  std::vector<std::string> formats = {};  // MIME types of the documents that it takes
  bool isDefault = false;                 // of the user, or else of the server
  bool hasOptions = false;                // its PPD has one of those that were asked for
  bool operator==(const ListedQueue&) const = default;
};

/// All queues of the print server, in its order, and which of them have a PPD with one of the
/// options `keywords`. Throws `Error`; a PPD that cannot be had is no error.
std::vector<ListedQueue> listedQueues(std::span<const char* const> keywords,
                                      const Terms& terms = {});

}  // namespace cardpanels::host
