#pragma once

#include <glibmm/exceptionhandler.h>
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>
#include <sigc++/sigc++.h>

#include <exception>
#include <map>
#include <memory>
#include <string>

#include "dialog/Captions.h"
#include "dialog/DialogSession.h"
#include "dialog/PresetWork.h"
#include "dialog/QueueReading.h"
#include "host/Error.h"
#include "host/PlugInLibrary.h"
#include "platform/Messages.h"
#include "platform/Text.h"
#include "ports/gtk/MainLoop.h"
#if !GTK_CHECK_VERSION(4, 0, 0)
#include <glibmm/exception.h>
#endif

namespace cardpanels::gtkmodule {

inline void logError(const std::string& text) {
  g_message("cardpanels: %s", platform::onOneLine(text).c_str());
}

/// Does `action`, whose failure is none of the program that shows the dialog.
template <typename Action>
void shielded(Action action) {
  try {
    action();
  } catch (const std::exception& error) {
    logError(error.what());
#if !GTK_CHECK_VERSION(4, 0, 0)  // later ones of glibmm are exceptions like all others
  } catch (const Glib::Exception& error) {
    logError(error.what());
#endif
  }
}

/// Exception handler of gtkmm, for a program that may use it too: what is not ours passes.
inline void handlerThrew() {
  try {
    throw;
  } catch (const host::Error& error) {
    logError(error.what());
  }
}

/// The program's print dialogs that have shown a card printer. `Toolkit` has the types `Dialog` (a
/// `UnixPrintDialog`) and `Bundle`, and the `textDomain` of GTK's own texts.
template <class Toolkit>
class WatchedDialogs {
 public:
  /// They stay until the process ends.
  static WatchedDialogs& all() {
    static auto* const dialogs = new WatchedDialogs;
    return *dialogs;
  }

  /// `dialog` shows the options of `queue` from now on, "" for a printer without card options.
  void showPrinter(GtkWidget* dialog, const std::string& queue) {
    auto& watched = dialogs_[dialog];
    if (!watched) {
      watched = std::make_unique<WatchedDialog>(GTK_PRINT_UNIX_DIALOG(dialog));
      g_signal_connect(dialog, "destroy",
                       G_CALLBACK(+[](GtkWidget* gone) { all().dialogs_.erase(gone); }), nullptr);
    }
    watched->showPrinter(queue);
  }

 private:
  class WatchedDialog {
   public:
    explicit WatchedDialog(GtkPrintUnixDialog* dialog)
        : dialog_(dialog),
          session_(dialog_, dialog::readQueueOnThread(gtk::postToMainLoop),
                   dialog::watchStateOnThread(gtk::postToMainLoop), makePanels,
                   dialog::workOnPresetsOnThread(gtk::postToMainLoop)) {
      dialog_.setChanged([this] { session_.dialogChanged(); });
      dialog_.setConflictDenied([this] { return session_.knowsNoConflict(); });
    }

    void showPrinter(const std::string& queue) {
      dialog_.controlsReplaced();
      session_.selectPrinter(queue);
    }

    void print() { session_.print(); }

   private:
    typename Toolkit::Dialog dialog_;
    dialog::DialogSession session_;
  };

  WatchedDialogs() {
    platform::useCatalogues(host::defaultBundlePath());
    Glib::add_exception_handler(sigc::ptr_fun(&handlerThrew));
    g_type_class_ref(GTK_TYPE_DIALOG);
    g_signal_add_emission_hook(g_signal_lookup("response", GTK_TYPE_DIALOG), 0, responded, this,
                               nullptr);
  }

  /// GTK's own text, which its catalogue translates.
  static std::string gtkText(const char* text) { return g_dgettext(Toolkit::textDomain, text); }

  static std::unique_ptr<host::PanelHost> makePanels(host::JobOptions& job) {
    auto captions =
        dialog::captionsOf(job, {gtkText("_Cancel"), gtkText("_Print"), gtkText("Pre_view")});
    const std::string bundle = host::defaultBundlePath();
    return std::make_unique<host::PanelHost>(
        bundle, std::make_shared<typename Toolkit::Bundle>(bundle, std::move(captions)), job);
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

}  // namespace cardpanels::gtkmodule
