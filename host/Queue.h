#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/PPDFile.h"
#include "host/Terms.h"

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

/// What a job for a queue goes out with besides the options of its PPD.
struct JobBasis {
  std::string queue;            // as the server writes it
  std::vector<Option> options;  // saved ones that the PPD does not know, such as `copies`
  bool addsMedia = false;       // the server has a `media` of the PPD for jobs without one
  std::chrono::steady_clock::time_point read = std::chrono::steady_clock::now();
};

/// What a queue of the print server offers to a job.
struct Queue {
  QueueName name;
  /// The user's and the administrator's saved options that the queue's PPD knows of, and
  /// `media` as long as that is none of the PPD's own.
  std::vector<Option> savedOptions;
  PPDFile ppd;
  std::string ppdText;  // byte by byte, to know the PPD again
  JobBasis basis;
  std::vector<Option> serverOptions = {};  // what the server adds to jobs without them
  std::string differences = {};  // what the printers of a class differ in, a sentence; "" for none
  bool isElsewhere = false;      // the PPD, or one of a class's, is another server's
};

/// Asks the print server (`CUPS_SERVER` and the rest of libcups' settings) for `name`, the default
/// queue when its queue is empty, and waits for that as long as `terms` say. The PPD may be that of
/// another server, or what a class's queues have in common (`fetchQueue`). Throws `Error` with the
/// queue's or the server's name, `PasswordNeeded` for a server that wants another login.
Queue openQueue(const QueueName& name, const Terms& terms = {});

/// Saves `options` under the queue's instance in the user's own settings, as `lpoptions` does,
/// without disturbing other saved options. The instance need not exist yet. Throws as `openQueue`
/// does.
void saveOptions(const QueueName& name, const std::vector<Option>& options,
                 const Terms& terms = {});

}  // namespace cardpanels::host
