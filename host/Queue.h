#pragma once

#include <atomic>
#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/PPDFile.h"

namespace cardpanels::host {

/// A print queue, and the instance of it that names a set of saved options.
struct QueueName {
  std::string queue;
  std::string instance;  // empty for none

  /// Reads `QUEUE` or `QUEUE/INSTANCE`.
  static QueueName parse(const std::string& text);
  /// The name as `parse` reads it.
  std::string text() const;
  bool operator==(const QueueName&) const = default;
};

/// What a queue of the print server offers to a job.
struct Queue {
  QueueName name;
  /// The user's and the administrator's saved options that the queue's PPD knows of, and
  /// `media` as long as that is none of the PPD's own.
  std::vector<Option> savedOptions;
  PPDFile ppd;
  std::string ppdText;  // byte by byte, to know the PPD again
};

/// Asks the print server (`CUPS_SERVER` and the rest of libcups' settings) for `name`, the default
/// queue when its queue is empty. Gives up on a server that is silent for `seconds`. Blocks
/// meanwhile. Throws `Error` with the queue's or the server's name.
Queue openQueue(const QueueName& name, int seconds = 10);

/// The same for a thread that somebody may stop waiting for: gives up after `seconds` of waiting in
/// all, and soon after `abandoned` has become true.
Queue openQueue(const QueueName& name, int seconds, const std::atomic<bool>& abandoned);

/// Saves `options` under the queue's instance in the user's own settings, as `lpoptions` does,
/// without disturbing other saved options. The instance need not exist yet. Throws `Error` as
/// `openQueue` does.
void saveOptions(const QueueName& name, const std::vector<Option>& options, int seconds = 10);

}  // namespace cardpanels::host
