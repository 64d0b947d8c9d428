#include "apps/gtk4-module/GtkPrintDialog.h"

#include "platform/Messages.h"

namespace cardpanels::gtk4module {
namespace {

using platform::_;

constexpr int kBorder = 18;
constexpr int kTabSpacing = 6;
constexpr const char* kTold = "cardpanels-told";  // a tab's

/// Tells `told` when the pointer rests on `tab`. A tooltip that is set looks for the pointer, which
/// is a critical warning while the window is away.
void setTold(GtkWidget* tab, const std::string& told) {
  g_object_set_data_full(G_OBJECT(tab), kTold, g_strdup(told.c_str()), g_free);
}

gboolean tellAtPointer(GtkWidget* tab, int /*x*/, int /*y*/, gboolean /*keyboard*/,
                       GtkTooltip* tooltip, gpointer /*data*/) {
  const auto* const told = static_cast<const char*>(g_object_get_data(G_OBJECT(tab), kTold));
  if (told == nullptr || *told == '\0') return FALSE;
  gtk_tooltip_set_text(tooltip, told);
  return TRUE;
}

}  // namespace

GtkPrintDialog::~GtkPrintDialog() {
  removePage();
  if (page_ != nullptr) g_signal_handlers_disconnect_by_data(page_, this);
  g_clear_object(&page_);
  g_clear_object(&sign_);
}

/// The page's tab: its name, and a sign that shows when there is something to see.
GtkWidget* GtkPrintDialog::newTab() {
  GtkWidget* const tab = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kTabSpacing);
  gtk_box_append(GTK_BOX(tab), gtk_label_new(_("Card")));
  sign_ = gtk_image_new_from_icon_name("dialog-warning-symbolic");
  g_object_ref_sink(sign_);
  gtk_widget_set_visible(sign_, FALSE);
  gtk_box_append(GTK_BOX(tab), sign_);
  gtk_widget_set_has_tooltip(tab, TRUE);
  g_signal_connect(tab, "query-tooltip", G_CALLBACK(tellAtPointer), nullptr);
  return tab;
}

GtkWidget* GtkPrintDialog::emptyPage() {
  cardPage_.reset();
  if (page_ == nullptr) {
    page_ = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
    g_object_ref_sink(page_);
    for (const char* signal : {"map", "unmap"}) {
      g_signal_connect_swapped(page_, signal,
                               G_CALLBACK(+[](GtkPrintDialog* self) { self->tellStatus(); }), this);
    }
    gtk_print_unix_dialog_add_custom_tab(dialog(), page_, newTab());
  }
  while (GtkWidget* const child = gtk_widget_get_first_child(page_)) {
    gtk_box_remove(GTK_BOX(page_), child);
  }
  gtk_widget_set_visible(page_, TRUE);
  return page_;
}

void GtkPrintDialog::showText(const std::string& text) {
  GtkWidget* const label = gtk_label_new(text.c_str());
  gtk_label_set_wrap(GTK_LABEL(label), TRUE);
  gtk_widget_set_margin_start(label, kBorder);
  gtk_widget_set_margin_end(label, kBorder);
  gtk_widget_set_vexpand(label, TRUE);
  gtk_box_append(GTK_BOX(emptyPage()), label);
}

dialog::Page& GtkPrintDialog::showPanels(host::PanelHost& panels) {
  emptyPage();
  cardPage_ = std::make_unique<gtk4::CardPage>(panels);
  gtk_box_append(GTK_BOX(page_), GTK_WIDGET(cardPage_->gobj()));
  cardPage_->set_vexpand();
  cardPage_->widenWindowWhenSeen();
  hideControls(panels.claimedKeys());
  return cardPage_->page();
}

void GtkPrintDialog::tellStatus() {
  const bool seen = page_ != nullptr && gtk_widget_get_mapped(page_) != FALSE;
  statusBar_.tell(status().toldBeside(seen),
                  status().isWrong() ? GTK_MESSAGE_ERROR : GTK_MESSAGE_WARNING);
  if (sign_ == nullptr) return;
  const std::string told = status().told();
  gtk_widget_set_visible(sign_, told.empty() ? FALSE : TRUE);
  GtkWidget* const tab = gtk_widget_get_parent(sign_);
  if (tab != nullptr) setTold(tab, told);
  describeTab(told);
}

GtkNotebook* GtkPrintDialog::notebook() const {
  GtkWidget* const found =
      page_ == nullptr ? nullptr : gtk_widget_get_ancestor(page_, GTK_TYPE_NOTEBOOK);
  return found == nullptr ? nullptr : GTK_NOTEBOOK(found);
}

/// Assistive technology knows the tab by the widget around what is drawn in it.
void GtkPrintDialog::describeTab(const std::string& text) {
  GtkWidget* const drawn = gtk_widget_get_parent(sign_);
  GtkWidget* const tab = drawn == nullptr ? nullptr : gtk_widget_get_parent(drawn);
  if (tab == nullptr) return;
  gtk_accessible_update_property(GTK_ACCESSIBLE(tab), GTK_ACCESSIBLE_PROPERTY_DESCRIPTION,
                                 text.c_str(), -1);
}

void GtkPrintDialog::openPage() {
  GtkNotebook* const tabs = notebook();
  if (tabs != nullptr) gtk_notebook_set_current_page(tabs, gtk_notebook_page_num(tabs, page_));
}

void GtkPrintDialog::removePage() {
  cardPage_.reset();
  // A dialog that ends has let the page go; GTK would look there for the focus.
  if (page_ != nullptr && gtk_widget_get_root(page_) != nullptr) {
    gtk_widget_set_visible(page_, FALSE);
  }
}

}  // namespace cardpanels::gtk4module
