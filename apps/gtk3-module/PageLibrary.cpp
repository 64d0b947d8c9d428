#include "apps/gtk3-module/PageLibrary.h"

#include <glibmm/exception.h>
#include <glibmm/exceptionhandler.h>
#include <gtkmm/main.h>
#include <sigc++/sigc++.h>

#include <exception>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "apps/gtk3-module/GtkPrintDialog.h"
#include "dialog/Captions.h"
#include "dialog/DialogSession.h"
#include "dialog/QueueReading.h"
#include "host/Error.h"
#include "host/PlugInLibrary.h"
#include "platform/Messages.h"
#include "platform/Text.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/MainLoop.h"

namespace cardpanels::gtk3module {
namespace {

/// GTK's own text, which its catalogue translates.
std::string gtkText(const char* text) { return g_dgettext("gtk30", text); }

std::unique_ptr<host::PanelHost> makePanels(host::JobOptions& job) {
  auto captions =
      dialog::captionsOf(job, {gtkText("_Cancel"), gtkText("_Print"), gtkText("Pre_view")});
  const std::string bundle = host::defaultBundlePath();
  return std::make_unique<host::PanelHost>(
      bundle, std::make_shared<gtk3::GtkBundle>(bundle, std::move(captions)), job);
}

void logError(const std::string& text) {
  g_message("cardpanels: %s", platform::onOneLine(text).c_str());
}

/// Does `action`, whose failure is none of the program that shows the dialog.
template <typename Action>
void shielded(Action action) {
  try {
    action();
  } catch (const std::exception& error) {
    logError(error.what());
  } catch (const Glib::Exception& error) {
    logError(error.what());
  }
}

/// Exception handler of gtkmm, for a program that may use it too: what is not ours passes.
void handlerThrew() {
  try {
    throw;
  } catch (const host::Error& error) {
    logError(error.what());
  }
}

/// A print dialog that has shown a card printer.
class WatchedDialog {
 public:
  explicit WatchedDialog(GtkPrintUnixDialog* dialog)
      : dialog_(dialog),
        session_(dialog_, dialog::readQueueOnThread(gtk3::postToMainLoop),
                 dialog::watchStateOnThread(gtk3::postToMainLoop), makePanels,
                 dialog::workOnPresetsOnThread(gtk3::postToMainLoop)) {
    dialog_.setChanged([this] { session_.dialogChanged(); });
    dialog_.setConflictDenied([this] { return session_.knowsNoConflict(); });
  }

  void showPrinter(const std::string& queue) {
    dialog_.controlsReplaced();
    session_.selectPrinter(queue);
  }

  void print() { session_.print(); }

 private:
  GtkPrintDialog dialog_;
  dialog::DialogSession session_;
};

class WatchedDialogs {
 public:
  /// The program's; it stays until the process ends.
  static WatchedDialogs& all() {
    static auto* const dialogs = new WatchedDialogs;
    return *dialogs;
  }

  WatchedDialog& at(GtkWidget* dialog) {
    auto& watched = dialogs_[dialog];
    if (!watched) {
      watched = std::make_unique<WatchedDialog>(GTK_PRINT_UNIX_DIALOG(dialog));
      g_signal_connect(dialog, "destroy",
                       G_CALLBACK(+[](GtkWidget* gone) { all().dialogs_.erase(gone); }), nullptr);
    }
    return *watched;
  }

 private:
  WatchedDialogs() {
    platform::useCatalogues(host::defaultBundlePath());
    Glib::add_exception_handler(sigc::ptr_fun(&handlerThrew));
    g_type_class_ref(GTK_TYPE_DIALOG);
    g_signal_add_emission_hook(g_signal_lookup("response", GTK_TYPE_DIALOG), 0, responded, this,
                               nullptr);
  }

  /// Runs before the program's own handlers, so the settings that they read are complete.
  static gboolean responded(GSignalInvocationHint* /*hint*/, guint /*count*/, const GValue* values,
                            gpointer data) {
    const auto& dialogs = static_cast<WatchedDialogs*>(data)->dialogs_;
    const auto found = dialogs.find(static_cast<GtkWidget*>(g_value_get_object(values)));
    const int response = g_value_get_int(values + 1);
    const bool prints = response == GTK_RESPONSE_OK || response == GTK_RESPONSE_APPLY;
    if (prints && found != dialogs.end()) shielded([&] { found->second->print(); });
    return TRUE;
  }

  std::map<GtkWidget*, std::unique_ptr<WatchedDialog>> dialogs_;
};

}  // namespace
}  // namespace cardpanels::gtk3module

void cardpanelsShowPrinter(GtkWidget* dialog, const char* printer) {
  using namespace cardpanels::gtk3module;
  shielded([&] {
    Gtk::Main::init_gtkmm_internals();
    WatchedDialogs::all().at(dialog).showPrinter(printer == nullptr ? "" : printer);
  });
}
