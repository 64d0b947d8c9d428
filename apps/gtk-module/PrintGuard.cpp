#include "apps/gtk-module/PrintGuard.h"

#include <utility>

namespace cardpanels::gtkmodule {

PrintGuard::PrintGuard(GtkPrintUnixDialog* dialog)
    : dialog_(dialog),
      buttons_{{{gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK)},
                {gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), GTK_RESPONSE_APPLY)}}} {
  for (const Button& each : buttons_) {
    if (each.widget == nullptr) continue;
    g_object_ref(each.widget);
    g_signal_connect(each.widget, "notify::sensitive",
                     G_CALLBACK(+[](GtkWidget* widget, GParamSpec*, gpointer guard) {
                       static_cast<PrintGuard*>(guard)->sensitivityChanged(widget);
                     }),
                     this);
  }
}

PrintGuard::~PrintGuard() {
  for (const Button& each : buttons_) {
    if (each.widget == nullptr) continue;
    g_signal_handlers_disconnect_by_data(each.widget, this);
    g_object_unref(each.widget);
  }
}

void PrintGuard::sensitivityChanged(GtkWidget* widget) {
  if (!held_ || setting_) return;
  for (Button& each : buttons_) {
    if (each.widget == widget) each.wanted = true;
  }
  setting_ = true;
  gtk_widget_set_sensitive(widget, FALSE);
  setting_ = false;
}

/// When GTK makes Print sensitive; while it is held that cannot be seen at the button.
bool PrintGuard::takesJobs() const {
  GtkPrinter* const printer = gtk_print_unix_dialog_get_selected_printer(dialog_);
  return printer != nullptr && gtk_printer_is_accepting_jobs(printer) != FALSE &&
         gtk_printer_has_details(printer) != FALSE;
}

void PrintGuard::hold(bool held) {
  if (std::exchange(held_, held) == held) return;
  setting_ = true;
  for (Button& each : buttons_) {
    if (each.widget == nullptr) continue;
    if (held) {
      each.wanted = gtk_widget_get_sensitive(each.widget) != FALSE;
      gtk_widget_set_sensitive(each.widget, FALSE);
    } else {
      const bool isPrint = &each == buttons_.data();
      gtk_widget_set_sensitive(each.widget, isPrint ? takesJobs() : each.wanted);
    }
  }
  setting_ = false;
}

}  // namespace cardpanels::gtkmodule
