#pragma once

#include <memory>
#include <string>
#include <vector>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/ChosenOptions.h"
#include "apps/cardprint/Printer.h"
#include "apps/cardprint/Waiter.h"
#include "host/JobOptions.h"
#include "host/PanelHost.h"
#include "host/Queue.h"

namespace cardpanels::cardprint {

/// The job that the command line asks for, from opening the printer's PPD to sending it.
class CardJob {
 public:
  /// Opens the PPD or the queue, marks saved options, applies the options of the command line by
  /// the host's rules, and makes the panels. `waiter` waits for server and disk, also later, and
  /// must outlive this. Throws `host::Error`, and `Cancelled`.
  CardJob(const Arguments& arguments, Waiter& waiter);

  /// Opens the queue anew after it got another PPD, and marks what `before` had chosen as far as it
  /// fits. Throws the same.
  CardJob(const Arguments& arguments, const CardJob& before);

  /// What the printer is called.
  const std::string& printerName() const { return printerName_; }

  /// The print server's queue; its name is empty when the job is made for a PPD file alone.
  const host::QueueName& queue() const { return queue_; }

  /// Whether there is something to print.
  bool hasFiles() const { return !files_.empty(); }

  host::PanelHost& panels() { return panels_; }

  /// Which saved or chosen options were left out and why, a sentence each.
  const std::vector<std::string>& leftOut() const { return leftOut_; }

  /// What options of the command line changed besides themselves, in sentences; "" for nothing.
  const std::string& notice() const { return chosen_.notice; }

  /// As `judged` of the options. Throws the same.
  std::vector<std::string> judged() const { return cardprint::judged(options_); }

  /// Sends the files, if there are any, and answers what standard output gets. Throws
  /// `host::PPDChanged` when the queue has another PPD by now, `host::Error` and `Cancelled`; then
  /// nothing was sent.
  std::string send();

  /// The job's number once it was sent, 0 before.
  int id() const { return id_; }

 private:
  CardJob(const Arguments& arguments, Waiter& waiter, Printer&& printer, const CardJob* before);
  std::vector<std::string> markedFirst(const std::vector<host::Option>& saved,
                                       const CardJob* before);
  ChosenOptions chosen(const std::vector<host::Option>& options);
  std::string summary();
  std::string optionsLine() const;
  std::string requestLine();

  Waiter& waiter_;
  const bool isSilent_;
  std::vector<std::string> files_;
  std::shared_ptr<const std::string> input_;  // once it has been read
  host::QueueName queue_;
  std::string printerName_;
  platform::Text ppdText_;  // as the queue had it
  host::JobOptions options_;
  std::vector<std::string> leftOut_;
  ChosenOptions chosen_;
  host::PanelHost panels_;
  int id_ = 0;
};

}  // namespace cardpanels::cardprint
