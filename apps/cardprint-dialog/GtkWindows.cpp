#include "apps/cardprint-dialog/GtkWindows.h"

#include <gtkmm/main.h>
#include <gtkmm/messagedialog.h>

#include <utility>

#include "apps/cardprint-dialog/CardDialog.h"
#include "apps/cardprint-dialog/JobFollower.h"
#include "apps/cardprint-dialog/ToolkitErrors.h"
#include "dialog/Captions.h"
#include "host/Error.h"
#include "host/Submission.h"
#include "platform/Messages.h"
#include "ports/gtk3/GtkBundle.h"

namespace cardpanels::cardprint {

using platform::_;

namespace {

constexpr const char* kProgram = "cardprint";

}  // namespace

GtkWindows::GtkWindows() {
  if (gtk_init_check(nullptr, nullptr) == FALSE) {
    throw host::Error(_("There is no display to show the dialog on; --no-dialog needs none."));
  }
  Gtk::Main::init_gtkmm_internals();
  // What the desktop file names as the windows' class.
  g_set_prgname(kProgram);
  gdk_set_program_class(kProgram);
}

GtkWindows::~GtkWindows() = default;

std::shared_ptr<platform::Bundle> GtkWindows::bundle(const std::string& path,
                                                     const host::JobOptions& job) {
  return std::make_shared<gtk3::GtkBundle>(path, dialog::captionsOf(job, CardDialog::captions()));
}

Choice GtkWindows::choose(DialogJob& job, const std::string& told) {
  return withoutToolkitErrors([&] {
    try {
      return chosen(job, told);
    } catch (const host::PPDChanged&) {
      throw;  // and the dialog stays
    } catch (...) {
      dialog_.reset();
      throw;
    }
  });
}

Choice GtkWindows::chosen(DialogJob& job, const std::string& told) {
  if (dialog_) {
    dialog_->showJob(job, told);
  } else {
    dialog_ = std::make_unique<CardDialog>(job, waiter_, told);
  }
  Choice choice{dialog_->choose(), dialog_->error()};
  choice.printer = dialog_->takeWantedPrinter();
  if (choice.printer.empty()) dialog_.reset();
  return choice;
}

void GtkWindows::tellError(const std::string& message) {
  withoutToolkitErrors([&] {
    Gtk::MessageDialog window(message, false, Gtk::MESSAGE_ERROR, Gtk::BUTTONS_NONE);
    window.set_title(_("Print on Card"));
    window.add_button(_("_Close"), Gtk::RESPONSE_CLOSE);
    window.run();
  });
}

void GtkWindows::follow(const std::string& queue, const std::vector<int>& ids) {
  withoutToolkitErrors([&] {
    const Notifications notifications;
    if (!notifications.areTaken()) return;
    JobFollower(queue, ids, notifications).run();
  });
}

}  // namespace cardpanels::cardprint
