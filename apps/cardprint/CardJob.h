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

  /// Opens the queue anew after it got another PPD, or another queue, and marks what `before` had
  /// chosen as far as it fits; its files are those of `before`. Throws the same.
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

  const std::vector<host::Option>& serverOptions() const override { return serverOptions_; }
  void usePreset(const std::string& name) override;
  const std::vector<std::string>& files() const override { return files_; }
  void setFiles(std::vector<std::string> files) override { files_ = std::move(files); }
  platform::Text attribute(const std::string& key) const override;
  void setAttribute(const host::Option& attribute) override;
  std::vector<host::Submission> submissions() const override;
  const platform::Text& ppdText() const override { return ppdText_; }
  std::string sent(const std::vector<int>& ids) override;
  std::string send() override;

  /// The numbers of the jobs that were sent.
  const std::vector<int>& ids() const { return ids_; }

 private:
  CardJob(const Arguments& arguments, Waiter& waiter, Windows* windows, Printer&& printer,
          const CardJob* before);
  std::vector<std::string> markedFirst(const Printer& printer, const CardJob* before);
  std::shared_ptr<platform::Bundle> bundle();
  ChosenOptions chosen(const std::vector<host::Option>& options);
  std::string summary();
  std::string optionsLine() const;
  std::string requestLine();
  std::string requestLine(int id, std::size_t files) const;
  host::Submission submission(const std::string& name) const;

  Waiter& waiter_;
  Windows* windows_;  // null without a dialog
  const bool isSilent_;
  std::vector<std::string> files_;
  std::shared_ptr<const std::string> input_;  // once it has been read
  host::QueueName queue_;
  std::string printerName_;
  platform::Text ppdText_;  // as the queue had it
  std::vector<host::Option> serverOptions_;
  std::optional<host::JobBasis> basis_;  // nothing where a person has time to choose
  host::OptionList savedAttributes_;
  host::JobOptions options_;
  std::vector<std::string> leftOut_;
  ChosenOptions chosen_;
  host::PanelHost panels_;
  std::vector<int> ids_;
};

}  // namespace cardpanels::cardprint
