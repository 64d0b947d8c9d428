#pragma once

#include <gtest/gtest.h>
#include <gtk/gtkunixprint.h>
#include <unistd.h>

#include "apps/gtk-module/Widgets.h"
#if GTK_CHECK_VERSION(4, 0, 0)
#include "tests/ports/gtk4/VirtualDisplay.h"
#else
#include "tests/ports/gtk3/VirtualDisplay.h"
#endif

namespace cardpanels::gtkmodule {

/// The dialog of the GTK that this is compiled for, with its printer to a file: it needs no server.
class UnixPrintDialogs : public testing::Test {
 protected:
  void SetUp() override {
    g_object_set(gtk_settings_get_default(), "gtk-print-backends", "file", nullptr);
    dialog_ = gtk_print_unix_dialog_new("Print", nullptr);
    auto* const dialog = GTK_PRINT_UNIX_DIALOG(dialog_);
    gtk_print_unix_dialog_set_manual_capabilities(
        dialog, static_cast<GtkPrintCapabilities>(GTK_PRINT_CAPABILITY_GENERATE_PDF |
                                                  GTK_PRINT_CAPABILITY_COPIES |
                                                  GTK_PRINT_CAPABILITY_PREVIEW));
    gtk_print_unix_dialog_set_embed_page_setup(dialog, TRUE);
    GtkPrintSettings* const settings = gtk_print_settings_new();
    gtk_print_settings_set_printer(settings, "Print to File");
    gtk_print_unix_dialog_set_settings(dialog, settings);
    g_object_unref(settings);
    gtk_widget_set_visible(dialog_, TRUE);
    ASSERT_TRUE(test::handleEventsUntil(
        [dialog] { return gtk_print_unix_dialog_get_selected_printer(dialog) != nullptr; }));
  }

  void TearDown() override {
#if GTK_CHECK_VERSION(4, 0, 0)
    gtk_window_destroy(GTK_WINDOW(dialog_));
#else
    gtk_widget_destroy(dialog_);
#endif
    test::handleEvents();
  }

  GtkPrintUnixDialog* native() { return GTK_PRINT_UNIX_DIALOG(dialog_); }

  GtkWidget* named(const char* name) {
    GtkWidget* found = nullptr;
    forEachWidget(dialog_, [&](GtkWidget* each) {
      if (g_strcmp0(buildableName(each), name) == 0) found = each;
    });
    return found;
  }

  GtkWidget* button(int response) {
    return gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog_), response);
  }
  bool canPrint() { return gtk_widget_get_sensitive(button(GTK_RESPONSE_OK)) != FALSE; }
  bool canPreview() { return gtk_widget_get_sensitive(button(GTK_RESPONSE_APPLY)) != FALSE; }

  /// What comes and goes in GTK takes a quarter of a second.
  static void letItMove() {
    usleep(400'000);
    test::handleEvents();
  }

  GtkWidget* dialog_ = nullptr;
};

}  // namespace cardpanels::gtkmodule
