#pragma once

#include <string>
#include <vector>

#include "apps/cardprint/Arguments.h"
#include "host/JobOptions.h"
#include "host/PanelHost.h"
#include "host/Queue.h"

namespace cardpanels::cardprint {

/// The job that the command line asks for, from opening the printer's PPD to sending it.
class CardJob {
 public:
  /// Opens the PPD or the queue, marks saved options, makes the panels, and applies the options of
  /// the command line by the host's rules. Throws `host::Error`.
  explicit CardJob(const Arguments& arguments);

  /// What the printer is called.
  const std::string& printerName() const { return printerName_; }

  host::PanelHost& panels() { return panels_; }

  /// What the user shall know of how the options came to be, a text each.
  const std::vector<std::string>& notices() const { return notices_; }

  /// Sends the files, if there are any, and answers what standard output gets. Throws
  /// `host::Error`; then nothing was sent.
  std::string send();

 private:
  /// Where the PPD comes from.
  struct Printer;

  CardJob(const Arguments& arguments, Printer&& printer);
  static Printer openPrinter(const Arguments& arguments);
  void choose(const host::Option& option);
  std::string summary();
  std::string lastLine();

  std::vector<std::string> files_;
  host::QueueName queue_;
  std::string printerName_;
  host::JobOptions options_;
  std::vector<std::string> notices_;
  host::PanelHost panels_;
};

}  // namespace cardpanels::cardprint
