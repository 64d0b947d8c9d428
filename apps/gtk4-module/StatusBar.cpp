#include "apps/gtk4-module/StatusBar.h"

#include <utility>

#include "platform/Messages.h"

namespace cardpanels::gtk4module {
namespace {

using platform::_;

constexpr int kMaximumHeight = 100;

}  // namespace

StatusBar::StatusBar(GtkDialog* dialog, std::function<void()> show)
    : show_(std::move(show)), bar_(gtk_info_bar_new()), label_(gtk_label_new(nullptr)) {
  gtk_label_set_wrap(GTK_LABEL(label_), TRUE);
  gtk_label_set_wrap_mode(GTK_LABEL(label_), PANGO_WRAP_WORD_CHAR);
  gtk_label_set_xalign(GTK_LABEL(label_), 0);
  GtkWidget* const scroller = gtk_scrolled_window_new();
  gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(scroller), GTK_POLICY_NEVER,
                                 GTK_POLICY_AUTOMATIC);
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(scroller), FALSE);
  gtk_scrolled_window_set_propagate_natural_height(GTK_SCROLLED_WINDOW(scroller), TRUE);
  gtk_scrolled_window_set_max_content_height(GTK_SCROLLED_WINDOW(scroller), kMaximumHeight);
  gtk_scrolled_window_set_child(GTK_SCROLLED_WINDOW(scroller), label_);
  gtk_widget_set_hexpand(scroller, TRUE);
  g_object_ref_sink(bar_);
  gtk_info_bar_add_child(GTK_INFO_BAR(bar_), scroller);
  gtk_info_bar_add_button(GTK_INFO_BAR(bar_), _("_Show"), GTK_RESPONSE_ACCEPT);
  g_signal_connect_swapped(bar_, "response", G_CALLBACK(+[](StatusBar* self) { self->show_(); }),
                           this);
  gtk_widget_set_visible(bar_, FALSE);
  gtk_box_append(GTK_BOX(gtk_dialog_get_content_area(dialog)), bar_);
}

StatusBar::~StatusBar() {
  g_signal_handlers_disconnect_by_data(bar_, this);
  GtkWidget* const box = gtk_widget_get_parent(bar_);
  if (box != nullptr) gtk_box_remove(GTK_BOX(box), bar_);
  g_object_unref(bar_);
}

void StatusBar::tell(const std::string& text, GtkMessageType type) {
  gtk_label_set_text(GTK_LABEL(label_), text.c_str());
  gtk_info_bar_set_message_type(GTK_INFO_BAR(bar_), type);
  gtk_widget_set_visible(bar_, text.empty() ? FALSE : TRUE);
}

}  // namespace cardpanels::gtk4module
