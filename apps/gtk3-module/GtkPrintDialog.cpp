#include "apps/gtk3-module/GtkPrintDialog.h"

#include <array>
#include <cstring>
#include <string_view>
#include <utility>

#include "apps/gtk3-module/PrinterOptions.h"
#include "platform/Messages.h"

namespace cardpanels::gtk3module {

struct Unref {
  void operator()(gpointer object) const { g_object_unref(object); }
};

namespace {

using host::Option;
using platform::_;

constexpr int kBorder = 18;
constexpr int kTabSpacing = 6;
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

/// The widget that GTK's description of the dialog calls `name`.
GtkWidget* childNamed(GtkWidget* dialog, const char* name) {
  GtkWidget* found = nullptr;
  forEachWidget(dialog, [&](GtkWidget* each) {
    const char* const own =
        GTK_IS_BUILDABLE(each) ? gtk_buildable_get_name(GTK_BUILDABLE(each)) : nullptr;
    if (own != nullptr && std::strcmp(own, name) == 0) found = each;
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
    gtk_widget_hide(GTK_WIDGET(each->data));
  }
  g_list_free(labels);
  gtk_widget_hide(widget);
}

bool isLayout(GtkWidget* widget) {
  return GTK_IS_BOX(widget) || GTK_IS_GRID(widget) || GTK_IS_VIEWPORT(widget) ||
         GTK_IS_SCROLLED_WINDOW(widget);
}

/// Whether something is to be seen in `widget` but headings.
bool showsSomething(GtkWidget* widget) {
  if (gtk_widget_get_visible(widget) == FALSE || GTK_IS_LABEL(widget)) return false;
  if (!isLayout(widget)) return true;
  bool shows = false;
  gtk_container_foreach(
      GTK_CONTAINER(widget),
      [](GtkWidget* child, gpointer data) {
        auto& found = *static_cast<bool*>(data);
        found = found || showsSomething(child);
      },
      &shows);
  return shows;
}

/// Hides the groups around `widget`, and the dialog's page, that nothing shows in any more. GTK
/// shows pages anew for each printer, but no other container that is part of the dialog itself.
void hideEmptyGroups(GtkWidget* widget) {
  GtkWidget* each = gtk_widget_get_parent(widget);
  while (each != nullptr && isLayout(each) && !showsSomething(each)) {
    GtkWidget* const parent = gtk_widget_get_parent(each);
    const bool isPage = GTK_IS_NOTEBOOK(parent);
    if (isPage || gtk_buildable_get_name(GTK_BUILDABLE(each)) == nullptr) gtk_widget_hide(each);
    each = parent;
  }
}

}  // namespace

class GtkPrintDialog::Control {
 public:
  Control(std::string key, GObject* option, GtkPrintDialog& dialog)
      : key_(std::move(key)), option_(G_OBJECT(g_object_ref(option))) {
    handler_ = g_signal_connect_swapped(
        option_.get(), "changed",
        G_CALLBACK(+[](GtkPrintDialog* changed) { changed->changeLater(); }), &dialog);
  }
  ~Control() { g_signal_handler_disconnect(option_.get(), handler_); }
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& key() const { return key_; }
  std::string value() const { return valueOf(option_.get()); }
  void setValue(const std::string& value) {
    g_object_set(option_.get(), "value", value.c_str(), nullptr);
  }

 private:
  std::string key_;
  std::unique_ptr<GObject, Unref> option_;
  gulong handler_;
};

GtkPrintDialog::GtkPrintDialog(GtkPrintUnixDialog* dialog)
    : dialog_(dialog),
      conflictSign_(childNamed(GTK_WIDGET(dialog), "conflicts_widget")),
      paperSizes_(childNamed(GTK_WIDGET(dialog), "paper_size_combo")),
      copies_(childNamed(GTK_WIDGET(dialog), "copies_spin")),
      guard_(dialog),
      statusBar_(GTK_DIALOG(dialog), [this] { openPage(); }) {
  if (conflictSign_ != nullptr) {
    g_signal_connect_swapped(conflictSign_, "notify::visible",
                             G_CALLBACK(+[](GtkPrintDialog* shown) { shown->denyConflict(); }),
                             this);
  }
  for (const auto& [widget, signal] :
       {std::pair(paperSizes_, "changed"), std::pair(copies_, "value-changed")}) {
    if (widget == nullptr) continue;
    g_signal_connect_swapped(
        widget, signal, G_CALLBACK(+[](GtkPrintDialog* changed) { changed->changeLater(); }), this);
  }
}

GtkPrintDialog::~GtkPrintDialog() {
  if (page_ != nullptr) {
    g_signal_handlers_disconnect_by_data(page_, &page_);
    g_signal_handlers_disconnect_by_data(page_, this);
  }
  if (sign_ != nullptr) g_signal_handlers_disconnect_by_data(sign_, &sign_);
  for (GtkWidget* each : {conflictSign_, paperSizes_, copies_}) {
    if (each != nullptr) g_signal_handlers_disconnect_by_data(each, this);
  }
  forgetControls();
  removePage();
}

void GtkPrintDialog::forgetControls() {
  controls_.clear();
  if (changeSource_ != 0) g_source_remove(std::exchange(changeSource_, 0));
}

void GtkPrintDialog::controlsReplaced() {
  forgetControls();
  const std::unique_ptr<GtkPrintSettings, Unref> settings(
      gtk_print_unix_dialog_get_settings(dialog_));
  forEachPrinterOption(GTK_WIDGET(dialog_), [&](GtkWidget*, GObject* option) {
    const char* const name = optionName(option);
    std::string key = keyOf(name);
    if (key.empty() || !isConfirmed(settings.get(), name, option)) return;
    controls_.push_back(std::make_unique<Control>(std::move(key), option, *this));
  });
}

void GtkPrintDialog::changeLater() {
  if (changeSource_ != 0) return;
  // Before GTK looks for conflicts, which it does when all else is done.
  changeSource_ = g_idle_add_full(
      G_PRIORITY_HIGH_IDLE,
      [](gpointer data) -> gboolean {
        auto* const self = static_cast<GtkPrintDialog*>(data);
        self->changeSource_ = 0;
        if (self->changed_) self->changed_();
        return G_SOURCE_REMOVE;
      },
      this, nullptr);
}

void GtkPrintDialog::denyConflict() {
  if (gtk_widget_get_visible(conflictSign_) == FALSE) return;
  if (conflictDenied_ && conflictDenied_()) gtk_widget_hide(conflictSign_);
}

std::vector<Option> GtkPrintDialog::options() const {
  std::vector<Option> all;
  for (const auto& each : controls_) {
    Option option{each->key(), each->value()};
    if (option.value != kLeftOut) all.push_back(std::move(option));
  }
  return all;
}

std::string GtkPrintDialog::pageSize() const {
  GtkPageSetup* const setup = gtk_print_unix_dialog_get_page_setup(dialog_);
  return setup == nullptr ? "" : pageSizeOf(setup);
}

/// Each row of the dialog's list has a page setup, but for separators and what opens windows.
void GtkPrintDialog::setPageSize(const std::string& size) {
  if (paperSizes_ == nullptr || !GTK_IS_COMBO_BOX(paperSizes_)) return;
  GtkTreeModel* const model = gtk_combo_box_get_model(GTK_COMBO_BOX(paperSizes_));
  if (model == nullptr || g_type_is_a(gtk_tree_model_get_column_type(model, 0), G_TYPE_OBJECT) == 0)
    return;
  GtkTreeIter row;
  for (gboolean has = gtk_tree_model_get_iter_first(model, &row); has != FALSE;
       has = gtk_tree_model_iter_next(model, &row)) {
    GObject* object = nullptr;
    gtk_tree_model_get(model, &row, 0, &object, -1);
    const std::unique_ptr<GObject, Unref> setup(object);
    if (!GTK_IS_PAGE_SETUP(object) || pageSizeOf(GTK_PAGE_SETUP(object)) != size) continue;
    gtk_combo_box_set_active_iter(GTK_COMBO_BOX(paperSizes_), &row);
    return;
  }
}

std::string GtkPrintDialog::copies() const {
  if (copies_ == nullptr || !GTK_IS_SPIN_BUTTON(copies_)) return "1";
  return std::to_string(gtk_spin_button_get_value_as_int(GTK_SPIN_BUTTON(copies_)));
}

void GtkPrintDialog::setCopies(const std::string& copies) {
  if (copies_ == nullptr || !GTK_IS_SPIN_BUTTON(copies_)) return;
  gtk_spin_button_set_value(GTK_SPIN_BUTTON(copies_), g_ascii_strtod(copies.c_str(), nullptr));
}

void GtkPrintDialog::set(const Option& option) {
  for (const auto& each : controls_) {
    if (each->key() == option.key) each->setValue(option.value);
  }
}

/// The page's tab: its name, and a sign that shows when there is something to see.
GtkWidget* GtkPrintDialog::newTab() {
  GtkWidget* const tab = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kTabSpacing);
  gtk_box_pack_start(GTK_BOX(tab), gtk_label_new(_("Card")), TRUE, TRUE, 0);
  sign_ = gtk_image_new_from_icon_name("dialog-warning-symbolic", GTK_ICON_SIZE_MENU);
  g_signal_connect(sign_, "destroy", G_CALLBACK(gtk_widget_destroyed), &sign_);
  gtk_box_pack_start(GTK_BOX(tab), sign_, FALSE, FALSE, 0);
  gtk_widget_show_all(tab);
  gtk_widget_hide(sign_);
  return tab;
}

GtkWidget* GtkPrintDialog::emptyPage() {
  cardPage_.reset();
  if (page_ == nullptr) {
    page_ = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    g_signal_connect(page_, "destroy", G_CALLBACK(gtk_widget_destroyed), &page_);
    for (const char* signal : {"map", "unmap"}) {
      g_signal_connect_swapped(page_, signal,
                               G_CALLBACK(+[](GtkPrintDialog* self) { self->tellStatus(); }), this);
    }
    gtk_print_unix_dialog_add_custom_tab(dialog_, page_, newTab());
  }
  gtk_container_foreach(
      GTK_CONTAINER(page_), [](GtkWidget* child, gpointer) { gtk_widget_destroy(child); }, nullptr);
  gtk_widget_show(page_);
  return page_;
}

void GtkPrintDialog::showText(const std::string& text) {
  GtkWidget* const label = gtk_label_new(text.c_str());
  gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
  gtk_container_set_border_width(GTK_CONTAINER(emptyPage()), kBorder);
  gtk_box_pack_start(GTK_BOX(page_), label, TRUE, TRUE, 0);
  gtk_widget_show(label);
}

dialog::Page& GtkPrintDialog::showPanels(host::PanelHost& panels) {
  gtk_container_set_border_width(GTK_CONTAINER(emptyPage()), 0);
  cardPage_ = std::make_unique<gtk3::CardPage>(panels);
  gtk_box_pack_start(GTK_BOX(page_), GTK_WIDGET(cardPage_->gobj()), TRUE, TRUE, 0);
  cardPage_->widenWindowWhenSeen();
  cardPage_->show();
  hideControls(panels.claimedKeys());
  return cardPage_->page();
}

void GtkPrintDialog::hideControls(const std::set<std::string>& keys) {
  forEachPrinterOption(GTK_WIDGET(dialog_), [&keys](GtkWidget* widget, GObject* option) {
    if (!keys.contains(keyOf(optionName(option)))) return;
    hideWithLabels(widget);
    hideEmptyGroups(widget);
  });
}

void GtkPrintDialog::showStatus(const dialog::PageStatus& status) {
  status_ = status;
  guard_.hold(!status_.wrong.empty());
  tellStatus();
}

/// The page's own bar tells what is pressing while it is seen.
void GtkPrintDialog::tellStatus() {
  const bool seen = page_ != nullptr && gtk_widget_get_mapped(page_) != FALSE;
  auto told = status_.pressing;
  if (!status_.printer.empty()) told.push_back(status_.printer);
  const std::string pressing = dialog::joined(told, "\n");
  const bool isWrong = !status_.wrong.empty();
  const std::string& why = isWrong ? status_.wrong : pressing;
  statusBar_.tell(seen && !isWrong ? "" : why, isWrong ? GTK_MESSAGE_ERROR : GTK_MESSAGE_WARNING);
  if (sign_ == nullptr) return;
  gtk_widget_set_visible(sign_, why.empty() ? FALSE : TRUE);
  gtk_widget_set_tooltip_text(gtk_widget_get_parent(sign_), why.c_str());
  describeTab(why);
}

GtkNotebook* GtkPrintDialog::notebook() const {
  GtkWidget* const found =
      page_ == nullptr ? nullptr : gtk_widget_get_ancestor(page_, GTK_TYPE_NOTEBOOK);
  return found == nullptr ? nullptr : GTK_NOTEBOOK(found);
}

/// Assistive technology knows a tab by its page, not by what is drawn in it.
void GtkPrintDialog::describeTab(const std::string& text) {
  GtkNotebook* const tabs = notebook();
  if (tabs == nullptr) return;
  AtkObject* const accessible = gtk_widget_get_accessible(GTK_WIDGET(tabs));
  AtkObject* const tab =
      atk_object_ref_accessible_child(accessible, gtk_notebook_page_num(tabs, page_));
  if (tab == nullptr) return;
  atk_object_set_description(tab, text.c_str());
  g_object_unref(tab);
}

void GtkPrintDialog::openPage() {
  GtkNotebook* const tabs = notebook();
  if (tabs != nullptr) gtk_notebook_set_current_page(tabs, gtk_notebook_page_num(tabs, page_));
}

void GtkPrintDialog::removePage() {
  cardPage_.reset();
  // Taking a tab away while a screen reader listens is a critical warning of GTK 3.
  if (page_ != nullptr) gtk_widget_hide(page_);
}

}  // namespace cardpanels::gtk3module
