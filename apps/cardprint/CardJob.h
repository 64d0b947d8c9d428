#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/cardprint/Arguments.h"
#include "apps/cardprint/ChosenOptions.h"
#include "apps/cardprint/DialogJob.h"
#include "apps/cardprint/Printer.h"
#include "apps/cardprint/Waiter.h"
#include "apps/cardprint/Windows.h"
#include "host/JobOptions.h"
#include "host/PanelHost.h"
#include "host/Queue.h"

namespace cardpanels::cardprint {

/// The job that the command line asks for, from opening the printer's PPD to sending it.
class CardJob final : public DialogJob {
 public:
  /// Opens the PPD or the queue, marks saved options, applies the options of the command line by
  /// the host's rules, and makes the panels, which nobody will look at. `waiter` waits for server
  /// and disk, also later, and must outlive this. Throws `host::Error`, and `Cancelled`.
  CardJob(const Arguments& arguments, Waiter& waiter);

  /// The same for a dialog: panels and waiter are those of `windows`.
  CardJob(const Arguments& arguments, Windows& windows);

  /// Opens the queue anew after it got another PPD, and marks what `before` had chosen as far as it
  /// fits. Throws the same.
  CardJob(const Arguments& arguments, const CardJob& before);

  const std::string& printerName() const override { return printerName_; }
  const host::QueueName& queue() const override { return queue_; }

  /// Whether there is something to print.
  bool hasFiles() const { return !files_.empty(); }

  host::PanelHost& panels() override { return panels_; }
  const std::vector<std::string>& leftOut() const override { return leftOut_; }

  PrintedFile firstFile() const override;

  /// What options of the command line changed besides themselves, in sentences; "" for nothing.
  const std::string& notice() const { return chosen_.notice; }

  /// As `judged` of the options. Throws the same.
  std::vector<std::string> judged() const { return cardprint::judged(options_); }

  std::string send() override;

  /// The job's number once it was sent, 0 before.
  int id() const { return id_; }

 private:
  CardJob(const Arguments& arguments, Waiter& waiter, Windows* windows, Printer&& printer,
          const CardJob* before);
  std::vector<std::string> markedFirst(const std::vector<host::Option>& saved,
                                       const CardJob* before);
  std::shared_ptr<platform::Bundle> bundle();
  ChosenOptions chosen(const std::vector<host::Option>& options);
  std::string summary();
  std::string optionsLine() const;
  std::string requestLine();

  Waiter& waiter_;
  Windows* windows_;  // null without a dialog
  const bool isSilent_;
  std::vector<std::string> files_;
  std::shared_ptr<const std::string> input_;  // once it has been read
  host::QueueName queue_;
  std::string printerName_;
  platform::Text ppdText_;               // as the queue had it
  std::optional<host::JobBasis> basis_;  // nothing where a person has time to choose
  host::JobOptions options_;
  std::vector<std::string> leftOut_;
  ChosenOptions chosen_;
  host::PanelHost panels_;
  int id_ = 0;
};

}  // namespace cardpanels::cardprint
