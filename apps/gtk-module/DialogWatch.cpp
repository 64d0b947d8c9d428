#include "apps/gtk-module/DialogWatch.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>

#include "apps/gtk-module/PageLibrary.h"
#include "apps/gtk-module/PrinterOptions.h"
#include "host/CardKeys.h"
#include "host/ElsewhereQuestion.h"

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

char* folder = nullptr;  // of the module and what it opens
const char* pageLibrary = nullptr;

void* openLibrary(const char* name) {
  char* const path = g_build_filename(folder, name, nullptr);
  void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
  if (library == nullptr) g_message("cardpanels: %s", dlerror());
  g_free(path);
  return library;
}

/// The library's function; null without one.
template <class Function>
Function functionOf(void* library, const char* name) {
  void* const entry = library == nullptr ? nullptr : dlsym(library, name);
  if (library != nullptr && entry == nullptr) g_message("cardpanels: %s", dlerror());
  return reinterpret_cast<Function>(entry);
}

/// The page's library, once it has been opened.
decltype(&cardpanelsShowPrinter) showPrinter = nullptr;

void showPage(GObject* dialog, const char* queue) {
  static bool opened = false;
  if (!std::exchange(opened, true)) {
    showPrinter =
        functionOf<decltype(showPrinter)>(openLibrary(pageLibrary), "cardpanelsShowPrinter");
  }
  if (showPrinter != nullptr) showPrinter(GTK_WIDGET(dialog), queue);
}

/// What answers for other print servers. Opened for the first printer without card options of its
/// own, and without a toolkit.
struct HostLibrary {
  void* library = openLibrary("libcardpanels-host.so.0");
  decltype(&cardpanelsAskElsewhere) ask =
      functionOf<decltype(&cardpanelsAskElsewhere)>(library, "cardpanelsAskElsewhere");
  decltype(&cardpanelsStopAsking) stopAsking =
      functionOf<decltype(&cardpanelsStopAsking)>(library, "cardpanelsStopAsking");
};

const HostLibrary& hostLibrary() {
  static const HostLibrary library;
  return library;
}

/// The dialog's question whether its printer has card options at another print server.
constexpr const char* kQuestion = "cardpanels-question";

struct Question {
  GWeakRef dialog;
  char* queue;
  void* asking;  // null when nobody waits for the answer
  bool hasCard;
};

/// The dialog does not wait any more.
void dropQuestion(gpointer data) {
  void* const asking = std::exchange(static_cast<Question*>(data)->asking, nullptr);
  if (asking != nullptr) hostLibrary().stopAsking(asking);
}

gboolean questionAnswered(gpointer data) {
  auto* const question = static_cast<Question*>(data);
  auto* dialog = static_cast<GObject*>(g_weak_ref_get(&question->dialog));
  if (dialog != nullptr && g_object_get_data(dialog, kQuestion) == question) {
    g_object_set_data(dialog, kQuestion, nullptr);
    if (question->hasCard) showPage(dialog, question->queue);
  }
  g_clear_object(&dialog);
  g_weak_ref_clear(&question->dialog);
  g_free(question->queue);
  g_free(question);
  return G_SOURCE_REMOVE;
}

/// Takes `queue`.
void askElsewhere(GObject* dialog, char* queue) {
  const HostLibrary& host = hostLibrary();
  if (host.ask == nullptr || host.stopAsking == nullptr) return g_free(queue);
  auto* const question = g_new0(Question, 1);
  g_weak_ref_init(&question->dialog, dialog);
  question->queue = queue;
  question->asking = host.ask(
      queue,
      [](void* asked, bool hasCard) {
        static_cast<Question*>(asked)->hasCard = hasCard;
        g_idle_add_full(G_PRIORITY_DEFAULT, questionAnswered, asked, nullptr);
      },
      question);
  g_object_set_data_full(dialog, kQuestion, question, dropQuestion);
}

void dropQuestionOf(GObject* dialog) { g_object_set_data(dialog, kQuestion, nullptr); }

void printerSelected(GObject* dialog) {
  dropQuestionOf(dialog);
  GObject* printer = nullptr;
  char* queue = nullptr;
  g_object_get(dialog, "selected-printer", &printer, nullptr);
  if (printer != nullptr) g_object_get(printer, "name", &queue, nullptr);
  const bool isOfCups =
      printer != nullptr && std::strcmp(G_OBJECT_TYPE_NAME(printer), "GtkPrinterCups") == 0;
  g_clear_object(&printer);
  if (hasCardOptions(GTK_WIDGET(dialog))) {
    showPage(dialog, queue);
  } else {
    if (showPrinter != nullptr) showPrinter(GTK_WIDGET(dialog), nullptr);
    if (isOfCups) return askElsewhere(dialog, queue);
  }
  g_free(queue);
}

}  // namespace

void findPageLibrary(const char* library) {
  if (folder != nullptr) return;
  Dl_info self{};
  if (dladdr(reinterpret_cast<const void*>(&findPageLibrary), &self) == 0) return;
  char* const path = g_canonicalize_filename(self.dli_fname, nullptr);
  char* const target = g_file_read_link(path, nullptr);
  char* const around = g_path_get_dirname(path);
  char* const real = target == nullptr ? g_strdup(path) : g_canonicalize_filename(target, around);
  folder = g_path_get_dirname(real);
  pageLibrary = library;
  g_free(path);
  g_free(target);
  g_free(around);
  g_free(real);
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
  g_signal_connect(widget, "destroy", G_CALLBACK(dropQuestionOf), nullptr);
  printerSelected(widget);
  return TRUE;
}

}  // namespace cardpanels::gtkmodule
