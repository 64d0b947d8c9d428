#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/PanelHost.h"
#include "host/Queue.h"
#include "host/Submission.h"
#include "platform/Text.h"

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

  /// What the print server adds to jobs without them.
  virtual const std::vector<host::Option>& serverOptions() const = 0;

  /// That instance of the queue stands for the job from now on, "" for none: what else is saved
  /// there goes out with it.
  virtual void usePreset(const std::string& name) = 0;

  /// What is to be printed; `kStandardInput` alone for standard input.
  virtual const std::vector<std::string>& files() const = 0;
  virtual void setFiles(std::vector<std::string> files) = 0;

  /// The value of an attribute that the job carries besides the PPD's options, such as `copies`; of
  /// the saved ones where it has none of its own.
  virtual platform::Text attribute(const std::string& key) const = 0;

  /// Gives the job that attribute of its own; with the empty value it has none of its own any more.
  virtual void setAttribute(const host::Option& attribute) = 0;

  /// A job for each file, as all stands now, without the PPD's text.
  virtual std::vector<host::Submission> submissions() const = 0;

  /// The PPD that its options are chosen on, as the queue had it; nothing without a queue.
  virtual const platform::Text& ppdText() const = 0;

  /// Those of `submissions` with these numbers were sent: answers what standard output gets.
  virtual std::string sent(const std::vector<int>& ids) = 0;

  virtual PrintedFile firstFile() const = 0;

  /// Sends the files, if there are any, and answers what standard output gets. Throws
  /// `host::PPDChanged` when the queue has another PPD by now, `host::Error` and `Cancelled`; then
  /// nothing was sent.
  virtual std::string send() = 0;
};

}  // namespace cardpanels::cardprint
