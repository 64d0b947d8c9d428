#include <glib-unix.h>
#include <gtk/gtk.h>
#include <gtk/gtkunixprint.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

// A program that prints, for the tests, with GTK 3 or GTK 4: each line of the pipe that it is
// started with is a command.
//
//   operation            a GtkPrintOperation, which starts from the settings of the one before
//   dialog               a GtkPrintUnixDialog; on Print and Preview its settings are written as
//                        KEY=VALUE lines
//   hide, show, destroy  do that to the dialog opened last
//   quit                 ends the main loop
//   leave                makes / the current folder

namespace {

GtkPrintSettings* settings = nullptr;
std::vector<GtkWidget*> dialogs;
GMainLoop* loop = nullptr;

#if GTK_CHECK_VERSION(4, 0, 0)
GtkWidget* newWindow() { return gtk_window_new(); }
void destroyWindow(GtkWidget* window) { gtk_window_destroy(GTK_WINDOW(window)); }
#else
GtkWidget* newWindow() { return gtk_window_new(GTK_WINDOW_TOPLEVEL); }
void destroyWindow(GtkWidget* window) { gtk_widget_destroy(window); }
#endif

void setVisible(GtkWidget* window, bool visible) {
  gtk_widget_set_visible(window, visible ? TRUE : FALSE);
}

void drawPage(GtkPrintOperation* /*operation*/, GtkPrintContext* context, int /*page*/) {
  cairo_t* const cairo = gtk_print_context_get_cairo_context(context);
  cairo_rectangle(cairo, 10, 10, 50, 50);
  cairo_fill(cairo);
}

void runOperation() {
  GtkPrintOperation* const operation = gtk_print_operation_new();
  gtk_print_operation_set_n_pages(operation, 1);
  if (settings != nullptr) gtk_print_operation_set_print_settings(operation, settings);
  g_signal_connect(operation, "draw-page", G_CALLBACK(drawPage), nullptr);
  const auto result =
      gtk_print_operation_run(operation, GTK_PRINT_OPERATION_ACTION_PRINT_DIALOG, nullptr, nullptr);
  if (result == GTK_PRINT_OPERATION_RESULT_APPLY) {
    g_clear_object(&settings);
    settings = GTK_PRINT_SETTINGS(g_object_ref(gtk_print_operation_get_print_settings(operation)));
  }
  std::printf("result %d\n", result);
  std::fflush(stdout);
  g_object_unref(operation);
}

void responded(GtkDialog* dialog, int response, gpointer /*data*/) {
  if (response == GTK_RESPONSE_OK || response == GTK_RESPONSE_APPLY) {
    GtkPrintSettings* const chosen =
        gtk_print_unix_dialog_get_settings(GTK_PRINT_UNIX_DIALOG(dialog));
    gtk_print_settings_foreach(
        chosen,
        [](const char* key, const char* value, gpointer) { std::printf("%s=%s\n", key, value); },
        nullptr);
    g_object_unref(chosen);
  }
  std::printf("response %d\n", response);
  std::fflush(stdout);
  setVisible(GTK_WIDGET(dialog), false);
}

void openDialog() {
  const std::string title = "Dialog " + std::to_string(dialogs.size() + 1);
  GtkWidget* const dialog = gtk_print_unix_dialog_new(title.c_str(), nullptr);
  gtk_print_unix_dialog_set_manual_capabilities(GTK_PRINT_UNIX_DIALOG(dialog),
                                                GTK_PRINT_CAPABILITY_PREVIEW);
  g_signal_connect(dialog, "response", G_CALLBACK(responded), nullptr);
  dialogs.push_back(dialog);
  setVisible(dialog, true);
}

gboolean command(GIOChannel* channel, GIOCondition /*condition*/, gpointer /*data*/) {
  char* line = nullptr;
  if (g_io_channel_read_line(channel, &line, nullptr, nullptr, nullptr) != G_IO_STATUS_NORMAL) {
    g_main_loop_quit(loop);
    return FALSE;
  }
  const std::string name = g_strstrip(line);
  g_free(line);
  if (name == "operation") runOperation();
  if (name == "dialog") openDialog();
  if (name == "hide") setVisible(dialogs.back(), false);
  if (name == "show") setVisible(dialogs.back(), true);
  if (name == "destroy") {
    destroyWindow(dialogs.back());
    dialogs.pop_back();
  }
  if (name == "leave" && chdir("/") != 0) std::abort();
  if (name == "quit") g_main_loop_quit(loop);
  return TRUE;
}

/// Waits until the window is drawn: a dialog that is asked for before may come to be behind it.
void waitForDrawn(GtkWidget* window) {
  bool drawn = false;
  GdkFrameClock* const clock = gtk_widget_get_frame_clock(window);
  const gulong handler = g_signal_connect_swapped(
      clock, "after-paint", G_CALLBACK(+[](bool* isDrawn) { *isDrawn = true; }), &drawn);
  while (!drawn) g_main_context_iteration(nullptr, TRUE);
  g_signal_handler_disconnect(clock, handler);
}

/// Ends as programs do on their last menu item, whatever dialogs are open.
gboolean terminated(gpointer /*data*/) { std::exit(0); }

}  // namespace

int main(int /*argc*/, char** argv) {
#if GTK_CHECK_VERSION(4, 0, 0)
  gtk_init();
#else
  gtk_init(nullptr, nullptr);
#endif
  GtkWidget* const window = newWindow();
  gtk_window_set_title(GTK_WINDOW(window), "Print program");
  setVisible(window, true);
  waitForDrawn(window);
  // Read and write: the pipe stays open while nobody writes.
  GIOChannel* const input = g_io_channel_new_file(argv[1], "r+", nullptr);
  g_io_add_watch(input, G_IO_IN, command, nullptr);
  g_unix_signal_add(SIGTERM, terminated, nullptr);
  loop = g_main_loop_new(nullptr, FALSE);
  g_main_loop_run(loop);
  return 0;
}
