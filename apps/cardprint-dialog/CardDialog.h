#pragma once

#include <gtkmm/button.h>
#include <gtkmm/dialog.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/cardprint-dialog/DocumentPages.h"
#include "apps/cardprint-dialog/FileList.h"
#include "apps/cardprint-dialog/JobHeader.h"
#include "apps/cardprint-dialog/OptionsDialog.h"
#include "apps/cardprint-dialog/WindowWaiter.h"
#include "apps/cardprint/DialogJob.h"
#include "host/PanelHost.h"
#include "ports/gtk/HandlerErrors.h"
#include "ports/gtk3/CardPage.h"

namespace cardpanels::cardprint {

/// A job's printer, files and panels in a dialog with Cancel and Print. Needs GTK to be
/// initialised.
class CardDialog : public Gtk::Dialog, private host::PanelObserver {
 public:
  /// A dialog for `job`, which `waiter` waits for; both must outlive it. Tells `told` at first.
  CardDialog(DialogJob& job, WindowWaiter& waiter, const std::string& told = {});
  ~CardDialog() override;

  /// The captions outside of the panels, with their mnemonics.
  static std::vector<std::string> captions();

  /// Goes over to `job`, which must outlive its place here, as the one before does until then.
  void showJob(DialogJob& job, const std::string& told);

  /// Lets the user choose until all is sent, they cancel or want another printer, and answers what
  /// standard output gets; nothing when nothing was sent. A job that cannot be sent is told in the
  /// dialog, which stays; but throws `host::PPDChanged`, and what handlers of the dialog have
  /// thrown.
  std::optional<std::string> choose();

  /// Why the last attempt to send the job failed, "" when it did not.
  const std::string& error() const { return error_; }

  /// The queue that the user wants instead, once; "" for none.
  std::string takeWantedPrinter() { return std::exchange(wantedPrinter_, ""); }

 private:
  void on_map() override;
  void optionsChanged() override;
  void tell(const std::string& message, const std::optional<host::Option>& insisted) override;

  DialogJob& job() const { return *job_; }
  dialog::Page& page() { return page_->page(); }
  void setDefaultSize();
  void watchPrinter();
  void offerPresets();
  void readPrinters();
  void showPrinters(const std::vector<host::ListedQueue>& queues);
  void wantPrinter(const std::string& queue);
  void showOtherOptions();
  void filesChanged();
  bool needsFiles() const;
  bool isOver(int response);
  bool print();
  bool send();
  bool sendEach();
  void showDocument();

  DialogJob* job_ = nullptr;
  WindowWaiter& waiter_;
  gtk::HandlerErrors errors_{[this] { response(Gtk::RESPONSE_CANCEL); }};
  JobHeader header_;
  FileList files_;
  Gtk::Box place_;  // of the page
  std::unique_ptr<gtk3::CardPage> page_;
  std::unique_ptr<OptionsDialog> options_;
  Gtk::Button* print_;
  std::optional<std::string> output_;  // of what was sent, once anything was
  std::string error_;
  std::string wantedPrinter_;
  std::shared_ptr<void> watching_;  // the printer's state
  std::shared_ptr<void> reading_;   // the printers
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  CardDocument document_;          // behind the areas
  std::shared_ptr<void> drawing_;  // it
};

}  // namespace cardpanels::cardprint
