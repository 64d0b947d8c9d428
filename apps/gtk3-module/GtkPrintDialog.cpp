#include "apps/gtk3-module/GtkPrintDialog.h"

#include "platform/Messages.h"

namespace cardpanels::gtk3module {
namespace {

using platform::_;

constexpr int kBorder = 18;
constexpr int kTabSpacing = 6;

}  // namespace

GtkPrintDialog::~GtkPrintDialog() {
  if (page_ != nullptr) {
    g_signal_handlers_disconnect_by_data(page_, &page_);
    g_signal_handlers_disconnect_by_data(page_, this);
  }
  if (sign_ != nullptr) g_signal_handlers_disconnect_by_data(sign_, &sign_);
  removePage();
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
    gtk_print_unix_dialog_add_custom_tab(dialog(), page_, newTab());
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

void GtkPrintDialog::tellStatus() {
  const bool seen = page_ != nullptr && gtk_widget_get_mapped(page_) != FALSE;
  statusBar_.tell(status().toldBeside(seen),
                  status().isWrong() ? GTK_MESSAGE_ERROR : GTK_MESSAGE_WARNING);
  if (sign_ == nullptr) return;
  const std::string told = status().told();
  gtk_widget_set_visible(sign_, told.empty() ? FALSE : TRUE);
  gtk_widget_set_tooltip_text(gtk_widget_get_parent(sign_), told.c_str());
  describeTab(told);
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
