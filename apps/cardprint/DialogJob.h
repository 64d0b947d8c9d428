#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/PanelHost.h"
#include "host/Queue.h"

namespace cardpanels::cardprint {

/// The document of a job, and what the job carries besides the printer's options.
struct PrintedFile {
  std::string path;  // of the first file; "" for none, and for standard input
  std::vector<host::Option> attributes;
};

/// A job as the dialog on it sees it.
class DialogJob {
 public:
  DialogJob() = default;
  DialogJob(const DialogJob&) = delete;
  DialogJob& operator=(const DialogJob&) = delete;
  virtual ~DialogJob() = default;

  /// What the printer is called.
  virtual const std::string& printerName() const = 0;

  /// The print server's queue; its name is empty when the job is made for a PPD file alone.
  virtual const host::QueueName& queue() const = 0;

  virtual host::PanelHost& panels() = 0;

  /// Which saved or chosen options were left out and why, a sentence each.
  virtual const std::vector<std::string>& leftOut() const = 0;

  virtual PrintedFile firstFile() const = 0;

  /// Sends the files, if there are any, and answers what standard output gets. Throws
  /// `host::PPDChanged` when the queue has another PPD by now, `host::Error` and `Cancelled`; then
  /// nothing was sent.
  virtual std::string send() = 0;
};

}  // namespace cardpanels::cardprint
