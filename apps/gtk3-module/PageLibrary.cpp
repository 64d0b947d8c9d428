#include "apps/gtk3-module/PageLibrary.h"

#include <dlfcn.h>
#include <gtkmm/main.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "apps/gtk3-module/GtkPrintDialog.h"
#include "dialog/Captions.h"
#include "dialog/DialogSession.h"
#include "dialog/QueueReading.h"
#include "platform/StringTable.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/MainLoop.h"

namespace cardpanels::gtk3module {
namespace {

/// The bundle's folder: as the environment says, else beside this library.
std::string bundlePath() {
  if (const char* path = std::getenv("CARDPANELS_BUNDLE")) return path;
  Dl_info self{};
  dladdr(reinterpret_cast<const void*>(&bundlePath), &self);
  return (std::filesystem::absolute(self.dli_fname).parent_path() / "cardpanels.bundle").string();
}

/// GTK's own text, which its catalogue translates.
std::string gtkText(const char* text) { return g_dgettext("gtk30", text); }

std::unique_ptr<host::PanelHost> makePanels(host::JobOptions& job) {
  auto captions =
      dialog::captionsOf(job, {gtkText("_Cancel"), gtkText("_Print"), gtkText("Pre_view")});
  return std::make_unique<host::PanelHost>(
      bundlePath(), std::make_shared<gtk3::GtkBundle>(bundlePath(), std::move(captions)), job);
}

/// A print dialog that has shown a card printer.
class WatchedDialog {
 public:
  explicit WatchedDialog(GtkPrintUnixDialog* dialog)
      : dialog_(dialog),
        session_(dialog_, dialog::readQueueOnThread(gtk3::postToMainLoop),
                 dialog::watchStateOnThread(gtk3::postToMainLoop), makePanels) {
    dialog_.setChanged([this] { session_.dialogChanged(); });
    dialog_.setConflictDenied([this] { return session_.knowsNoConflict(); });
  }

  void showPrinter(const std::string& queue) {
    dialog_.controlsReplaced();
    session_.selectPrinter(queue);
  }

  void print() { session_.print(); }

 private:
  // Brings the translations of the page's own texts, also where no panel loads.
  platform::StringTable translations_{bundlePath()};
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
    if (prints && found != dialogs.end()) found->second->print();
    return TRUE;
  }

  std::map<GtkWidget*, std::unique_ptr<WatchedDialog>> dialogs_;
};

}  // namespace
}  // namespace cardpanels::gtk3module

void cardpanelsShowPrinter(GtkWidget* dialog, const char* printer) {
  Gtk::Main::init_gtkmm_internals();
  cardpanels::gtk3module::WatchedDialogs::all().at(dialog).showPrinter(
      printer == nullptr ? "" : printer);
}
