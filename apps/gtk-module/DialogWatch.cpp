#include "apps/gtk-module/DialogWatch.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstring>
#include <iterator>

#include "apps/gtk-module/PageLibrary.h"
#include "apps/gtk-module/PrinterOptions.h"
#include "host/CardKeys.h"

namespace cardpanels::gtkmodule {
namespace {

bool isCardKey(const char* name) {
  if (name == nullptr || !g_str_has_prefix(name, kOptionPrefix)) return false;
  const char* const keyword = name + std::strlen(kOptionPrefix);
  return std::any_of(std::begin(host::kCardKeys), std::end(host::kCardKeys),
                     [keyword](const char* key) { return std::strcmp(keyword, key) == 0; });
}

bool hasCardOptions(GtkWidget* dialog) {
  bool found = false;
  forEachPrinterOption(dialog, [&found](GtkWidget*, GObject* option) {
    found = found || isCardKey(optionName(option));
  });
  return found;
}

char* pageLibrary = nullptr;  // its path

using ShowPrinter = decltype(&cardpanelsShowPrinter);

ShowPrinter loadPage() {
  void* const library = dlopen(pageLibrary, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  void* const entry = library == nullptr ? nullptr : dlsym(library, "cardpanelsShowPrinter");
  if (entry == nullptr) g_message("cardpanels: %s", dlerror());
  return reinterpret_cast<ShowPrinter>(entry);
}

void printerSelected(GObject* dialog) {
  static bool loaded = false;
  static ShowPrinter showPrinter = nullptr;
  const bool hasCard = hasCardOptions(GTK_WIDGET(dialog));
  if (hasCard && !loaded) {
    loaded = true;
    showPrinter = loadPage();
  }
  if (showPrinter == nullptr) return;
  GObject* printer = nullptr;
  char* name = nullptr;
  if (hasCard) g_object_get(dialog, "selected-printer", &printer, nullptr);
  if (printer != nullptr) g_object_get(printer, "name", &name, nullptr);
  showPrinter(GTK_WIDGET(dialog), name);
  g_free(name);
  g_clear_object(&printer);
}

}  // namespace

void findPageLibrary(const char* library) {
  if (pageLibrary != nullptr) return;
  Dl_info self{};
  if (dladdr(reinterpret_cast<const void*>(&findPageLibrary), &self) == 0) return;
  char* const path = g_canonicalize_filename(self.dli_fname, nullptr);
  char* const target = g_file_read_link(path, nullptr);
  char* const folder = g_path_get_dirname(path);
  char* const real = target == nullptr ? g_strdup(path) : g_canonicalize_filename(target, folder);
  char* const realFolder = g_path_get_dirname(real);
  pageLibrary = g_build_filename(realFolder, library, nullptr);
  g_free(path);
  g_free(target);
  g_free(folder);
  g_free(real);
  g_free(realFolder);
}

gboolean widgetAppears(GSignalInvocationHint* /*hint*/, guint /*count*/, const GValue* values,
                       gpointer /*data*/) {
  static GType printDialog = G_TYPE_INVALID;  // registered by the first print dialog
  if (printDialog == G_TYPE_INVALID) printDialog = g_type_from_name("GtkPrintUnixDialog");
  auto* const widget = static_cast<GObject*>(g_value_get_object(values));
  if (printDialog == G_TYPE_INVALID || !g_type_is_a(G_OBJECT_TYPE(widget), printDialog)) {
    return TRUE;
  }
  constexpr const char* kWatched = "cardpanels-watched";
  if (g_object_get_data(widget, kWatched) != nullptr) return TRUE;
  g_object_set_data(widget, kWatched, widget);
  g_signal_connect(widget, "notify::selected-printer", G_CALLBACK(printerSelected), nullptr);
  printerSelected(widget);
  return TRUE;
}

}  // namespace cardpanels::gtkmodule
