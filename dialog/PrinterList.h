#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialog/ServerThread.h"
#include "host/QueueList.h"

namespace cardpanels::dialog {

/// A row of a pop-up of printers.
struct PrinterRow {
  std::string queue;  // empty for a line between
  std::string text;   // the queue and what is to be known of its state
  bool operator==(const PrinterRow&) const = default;
};

/// The rows for `queues`: those for cards, a line, then the others, each in the server's order.
/// `chosen`, a queue with or without an instance, has a row of its own where the server has none
/// for it.
std::vector<PrinterRow> printerRows(const std::vector<host::ListedQueue>& queues,
                                    const std::string& chosen);

/// The queue to begin with where there is no default: the first one for cards, else the first one;
/// "" for none.
std::string firstPrinter(const std::vector<host::ListedQueue>& queues);

/// The queues of the print server, which are for cards where they have any of the cards' options.
/// Throws `host::Error`.
std::vector<host::ListedQueue> readPrinters(const host::Terms& terms);

/// The same on a thread; nobody is called back where the server cannot be asked.
std::shared_ptr<void> readPrintersOnThread(
    std::function<void(const std::vector<host::ListedQueue>& queues)> done, const Post& post);

}  // namespace cardpanels::dialog
