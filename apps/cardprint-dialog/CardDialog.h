#pragma once

#include <gtkmm/dialog.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/cardprint-dialog/DocumentPages.h"
#include "apps/cardprint-dialog/WindowWaiter.h"
#include "apps/cardprint/DialogJob.h"
#include "host/PanelHost.h"
#include "ports/gtk3/CardPage.h"
#include "ports/gtk3/HandlerErrors.h"

namespace cardpanels::cardprint {

/// The panels of a job in a dialog with Cancel and Print. Needs GTK to be initialised.
class CardDialog : public Gtk::Dialog, private host::PanelObserver {
 public:
  /// A dialog for `job`, which `waiter` waits for; both must outlive it. Tells `told` at first.
  CardDialog(DialogJob& job, WindowWaiter& waiter, const std::string& told = {});
  ~CardDialog() override;

  /// Lets the user choose until the job is sent, and answers what standard output gets; nothing
  /// when the user cancels. A job that cannot be sent is told in the dialog, which stays; but
  /// throws `host::PPDChanged`, and what handlers of the dialog have thrown.
  std::optional<std::string> choose();

  /// Why the last attempt to send the job failed, "" when it did not.
  const std::string& error() const { return error_; }

 private:
  void optionsChanged() override {
    page_.page().optionsChanged();
    showDocument();
  }
  void tell(const std::string& message, const std::optional<host::Option>& insisted) override;

  void setDefaultSize();
  void watchPrinter();
  void showDocument();
  std::optional<std::string> print();

  DialogJob& job_;
  WindowWaiter& waiter_;
  gtk3::HandlerErrors errors_{[this] { response(Gtk::RESPONSE_CANCEL); }};
  gtk3::CardPage page_;
  std::string error_;
  std::shared_ptr<void> watching_;  // the printer's state
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  CardDocument document_;          // behind the areas
  std::shared_ptr<void> drawing_;  // it
};

}  // namespace cardpanels::cardprint
