#pragma once

#include <gtk/gtk.h>

// What a module does that programs load: no more than to watch for print dialogs, with nothing that
// a program of its toolkit has not loaded anyway.

namespace cardpanels::gtkmodule {

/// Notes where the library with the page is, `library`, which is a literal, from the folder of the
/// module. To be called when the module is loaded: by a relative path that holds in the folder of
/// that time only.
void findPageLibrary(const char* library);

/// Emission hook of a signal of `GtkWidget` that each dialog emits before it can be used. The
/// page's library is opened when a print dialog first shows a printer with card options. Whether a
/// queue that has none here has some at another print server is asked beside the main loop.
gboolean widgetAppears(GSignalInvocationHint* hint, guint count, const GValue* values,
                       gpointer data);

}  // namespace cardpanels::gtkmodule
