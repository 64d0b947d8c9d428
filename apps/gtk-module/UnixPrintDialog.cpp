#include "apps/gtk-module/UnixPrintDialog.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "apps/gtk-module/PaperSizes.h"
#include "apps/gtk-module/PrinterOptions.h"
#include "apps/gtk-module/TypedValue.h"

namespace cardpanels::gtkmodule {

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};

namespace {

using host::Option;

// The value of an option that is left out of the job.
constexpr const char* kLeftOut = "gtk-ignore-value";

/// Options that GTK gives names of its own.
constexpr std::array<std::pair<const char*, const char*>, 4> kOwnNames = {{
    {"gtk-duplex", "Duplex"},
    {"gtk-paper-type", "MediaType"},
    {"gtk-paper-source", "InputSlot"},
    {"gtk-output-tray", "OutputBin"},
}};

/// The PPD's keyword of an option's name, "" for one that is not the PPD's.
std::string keyOf(const char* name) {
  if (name == nullptr) return {};
  if (g_str_has_prefix(name, kOptionPrefix)) return name + std::strlen(kOptionPrefix);
  for (const auto& [own, key] : kOwnNames) {
    if (std::strcmp(name, own) == 0) return key;
  }
  return {};
}

std::string valueOf(GObject* option) {
  char* value = nullptr;
  g_object_get(option, "value", &value, nullptr);
  std::string text = value == nullptr ? "" : value;
  g_free(value);
  return text;
}

/// Whether `name` is really the option's name: the dialog's settings tell its value under it.
bool isConfirmed(GtkPrintSettings* settings, const char* name, GObject* option) {
  if (!g_str_has_prefix(name, kOptionPrefix)) return true;
  const char* const value = gtk_print_settings_get(settings, name);
  return value != nullptr && value == valueOf(option);
}

/// The widget of that type that GTK's description of the dialog calls `name`; null for none.
GtkWidget* childNamed(GtkPrintUnixDialog* dialog, const char* name, GType type) {
  GtkWidget* found = nullptr;
  forEachWidget(GTK_WIDGET(dialog), [&](GtkWidget* each) {
    if (g_strcmp0(buildableName(each), name) == 0 && isOneOf(each, {type})) found = each;
  });
  return found;
}

/// The PPD's keyword; "" for none.
std::string pageSizeOf(GtkPageSetup* setup) {
  const char* const name = gtk_paper_size_get_ppd_name(gtk_page_setup_get_paper_size(setup));
  return name == nullptr ? "" : name;
}

void hideWithLabels(GtkWidget* widget) {
  GList* const labels = gtk_widget_list_mnemonic_labels(widget);
  for (GList* each = labels; each != nullptr; each = each->next) {
    gtk_widget_set_visible(GTK_WIDGET(each->data), FALSE);
  }
  g_list_free(labels);
  gtk_widget_set_visible(widget, FALSE);
}

bool isLayout(GtkWidget* widget) {
  return isOneOf(widget,
                 {GTK_TYPE_BOX, GTK_TYPE_GRID, GTK_TYPE_VIEWPORT, GTK_TYPE_SCROLLED_WINDOW});
}

/// Whether something is to be seen in `widget` but headings.
bool showsSomething(GtkWidget* widget) {
  if (gtk_widget_get_visible(widget) == FALSE) return false;
  if (isOneOf(widget, {GTK_TYPE_LABEL, GTK_TYPE_SCROLLBAR})) return false;
  if (!isLayout(widget)) return true;
  bool shows = false;
  forEachChild(widget, [&shows](GtkWidget* child) { shows = shows || showsSomething(child); });
  return shows;
}

/// Whether the dialog shows `widget` as a page, with a tab of its own.
bool isPage(GtkWidget* widget) {
  GtkWidget* const notebook = gtk_widget_get_ancestor(widget, GTK_TYPE_NOTEBOOK);
  return notebook != nullptr && gtk_notebook_page_num(GTK_NOTEBOOK(notebook), widget) >= 0;
}

/// Hides the groups around `widget`, and the dialog's page, that nothing shows in any more. GTK
/// shows pages anew for each printer, but no other container that is part of the dialog itself.
void hideEmptyGroups(GtkWidget* widget) {
  GtkWidget* each = gtk_widget_get_parent(widget);
  while (each != nullptr && isLayout(each) && !showsSomething(each)) {
    GtkWidget* const parent = gtk_widget_get_parent(each);
    if (isPage(each) || buildableName(each) == nullptr) gtk_widget_set_visible(each, FALSE);
    each = parent;
  }
}

}  // namespace

class UnixPrintDialog::Control {
 public:
  /// `widget` shows the option; null where none does.
  Control(std::string key, GObject* option, GtkWidget* widget, UnixPrintDialog& dialog)
      : key_(std::move(key)), option_(G_OBJECT(g_object_ref(option))), typed_(widget) {
    typed_.forgetLost(option);
    handler_ = g_signal_connect_swapped(
        option_.get(), "changed",
        G_CALLBACK(+[](UnixPrintDialog* changed) { changed->changeLater(); }), &dialog);
  }
  ~Control() { g_signal_handler_disconnect(option_.get(), handler_); }
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& key() const { return key_; }
  std::string value() const { return valueOf(option_.get()); }
  void setValue(const std::string& value) { typed_.set(option_.get(), value); }

 private:
  std::string key_;
  std::unique_ptr<GObject, Unref> option_;
  TypedValue typed_;
  gulong handler_;
};

UnixPrintDialog::UnixPrintDialog(GtkPrintUnixDialog* dialog)
    : dialog_(dialog),
      conflictSign_(childNamed(dialog, "conflicts_widget", GTK_TYPE_WIDGET)),
      paperSizes_(childNamed(dialog, "paper_size_combo", paperListType())),
      copies_(childNamed(dialog, "copies_spin", GTK_TYPE_SPIN_BUTTON)),
      guard_(dialog) {
  for (GtkWidget* each : {conflictSign_, paperSizes_, copies_}) {
    if (each != nullptr) g_object_ref(each);
  }
  if (conflictSign_ != nullptr) {
    // Not "notify::visible": GTK 3 lets a sign stay visible while it goes, and tells that each
    // time.
    g_signal_connect_swapped(conflictSign_, "show",
                             G_CALLBACK(+[](UnixPrintDialog* shown) { shown->denyConflict(); }),
                             this);
  }
  for (const auto& [widget, signal] :
       {std::pair(paperSizes_, kPaperSignal), std::pair(copies_, "value-changed")}) {
    if (widget == nullptr) continue;
    g_signal_connect_swapped(widget, signal,
                             G_CALLBACK(+[](UnixPrintDialog* changed) { changed->changeLater(); }),
                             this);
  }
}

UnixPrintDialog::~UnixPrintDialog() {
  for (GtkWidget* each : {conflictSign_, paperSizes_, copies_}) {
    if (each == nullptr) continue;
    g_signal_handlers_disconnect_by_data(each, this);
    g_object_unref(each);
  }
  forgetControls();
}

void UnixPrintDialog::forgetControls() {
  controls_.clear();
  if (changeSource_ != 0) g_source_remove(std::exchange(changeSource_, 0));
}

void UnixPrintDialog::controlsReplaced() {
  forgetControls();
  const std::unique_ptr<GtkPrintSettings, Unref> settings(
      gtk_print_unix_dialog_get_settings(dialog_));
  forEachPrinterOption(GTK_WIDGET(dialog_), [&](GtkWidget* widget, GObject* option) {
    const char* const name = optionName(option);
    std::string key = keyOf(name);
    if (key.empty() || !isConfirmed(settings.get(), name, option)) return;
    controls_.push_back(std::make_unique<Control>(std::move(key), option, widget, *this));
  });
}

void UnixPrintDialog::changeLater() {
  if (changeSource_ != 0) return;
  // Before GTK looks for conflicts, which it does when all else is done.
  changeSource_ = g_idle_add_full(
      G_PRIORITY_HIGH_IDLE,
      [](gpointer data) -> gboolean {
        auto* const self = static_cast<UnixPrintDialog*>(data);
        self->changeSource_ = 0;
        if (self->changed_) self->changed_();
        return G_SOURCE_REMOVE;
      },
      this, nullptr);
}

void UnixPrintDialog::denyConflict() {
  if (conflictDenied_ && conflictDenied_()) gtk_widget_set_visible(conflictSign_, FALSE);
}

std::vector<Option> UnixPrintDialog::options() const {
  std::vector<Option> all;
  for (const auto& each : controls_) {
    Option option{each->key(), each->value()};
    if (option.value != kLeftOut) all.push_back(std::move(option));
  }
  return all;
}

std::string UnixPrintDialog::pageSize() const {
  GtkPageSetup* const setup = gtk_print_unix_dialog_get_page_setup(dialog_);
  return setup == nullptr ? "" : pageSizeOf(setup);
}

void UnixPrintDialog::setPageSize(const std::string& size) {
  if (paperSizes_ == nullptr) return;
  selectPageSetup(paperSizes_, [&size](GtkPageSetup* setup) { return pageSizeOf(setup) == size; });
}

std::string UnixPrintDialog::copies() const {
  if (copies_ == nullptr) return "1";
  return std::to_string(gtk_spin_button_get_value_as_int(GTK_SPIN_BUTTON(copies_)));
}

void UnixPrintDialog::setCopies(const std::string& copies) {
  if (copies_ == nullptr) return;
  gtk_spin_button_set_value(GTK_SPIN_BUTTON(copies_), g_ascii_strtod(copies.c_str(), nullptr));
}

void UnixPrintDialog::set(const Option& option) {
  for (const auto& each : controls_) {
    if (each->key() == option.key) each->setValue(option.value);
  }
}

/// Borrowed; null when there is none.
GObject* UnixPrintDialog::optionSet() const {
  GObject* set = nullptr;
  forEachPrinterOption(GTK_WIDGET(dialog_), [&set](GtkWidget*, GObject* option) {
    if (set == nullptr) set = optionSetOf(option);
  });
  return set;
}

void UnixPrintDialog::addOptions(const std::vector<Option>& options) {
  GObject* const set = optionSet();
  if (set == nullptr) return;
  for (const Option& each : options) {
    const bool isThere =
        std::any_of(controls_.begin(), controls_.end(),
                    [&each](const auto& control) { return control->key() == each.key; });
    if (isThere) continue;
    const std::unique_ptr<GObject, Unref> added(
        addOption(set, (kOptionPrefix + each.key).c_str(), each.value.c_str()));
    if (!added) continue;
    controls_.push_back(std::make_unique<Control>(each.key, added.get(), nullptr, *this));
  }
}

void UnixPrintDialog::hideControls(const std::set<std::string>& keys) {
  forEachPrinterOption(GTK_WIDGET(dialog_), [&keys](GtkWidget* widget, GObject* option) {
    if (!keys.contains(keyOf(optionName(option)))) return;
    hideWithLabels(widget);
    hideEmptyGroups(widget);
  });
}

void UnixPrintDialog::showStatus(const dialog::PageStatus& status) {
  status_ = status;
  guard_.hold(status_.isWrong());
  tellStatus();
}

}  // namespace cardpanels::gtkmodule
