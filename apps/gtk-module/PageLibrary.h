#pragma once

#include <gtk/gtk.h>

extern "C" {
/// Tells that the print dialog `dialog` shows the options of queue `printer` from now on; null for
/// a printer without card options, or none. To be called on the thread of GTK, for one dialog again
/// after each change. Its end is noticed. What the library with the page is opened for.
__attribute__((visibility("default"))) void cardpanelsShowPrinter(GtkWidget* dialog,
                                                                  const char* printer);
}
