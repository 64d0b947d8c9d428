#include "ports/gtk4/PageKeys.h"

#include <gdk/gdkkeysyms.h>
#include <gtk/gtk.h>

#include <utility>

namespace cardpanels::gtk4 {

PageKeys::PageKeys(Gtk::Widget& page, Actions actions)
    : page_(page), actions_(std::move(actions)), keys_(Gtk::EventControllerKey::create()) {
  // Before the widgets around the focus: a notebook inside the page would take the keys.
  keys_->set_propagation_phase(Gtk::PropagationPhase::CAPTURE);
  pressed_ = keys_->signal_key_pressed().connect(
      [this](guint key, guint /*code*/, Gdk::ModifierType state) { return pressed(key, state); },
      false);
  mapped_ = page_.signal_map().connect([this] { connect(); });
  unmapped_ = page_.signal_unmap().connect([this] { disconnect(); });
}

PageKeys::~PageKeys() {
  mapped_.disconnect();
  unmapped_.disconnect();
  pressed_.disconnect();
  disconnect();
}

void PageKeys::connect() {
  disconnect();
  window_ = GTK_WIDGET(g_object_ref(gtk_widget_get_root(page_.gobj())));
  gtk_widget_add_controller(window_, GTK_EVENT_CONTROLLER(g_object_ref(keys_->gobj())));
}

void PageKeys::disconnect() {
  if (window_ == nullptr) return;
  // A window that ends has let it go already.
  if (gtk_event_controller_get_widget(GTK_EVENT_CONTROLLER(keys_->gobj())) == window_) {
    gtk_widget_remove_controller(window_, GTK_EVENT_CONTROLLER(keys_->gobj()));
  }
  g_clear_object(&window_);
}

bool PageKeys::pressed(guint key, Gdk::ModifierType state) {
  const auto* const action = actionOf(key, state);
  if (action == nullptr || (action != &actions_.help && isForNotebook())) return false;
  (*action)();
  return true;
}

/// Null for a key that does nothing here.
const std::function<void()>* PageKeys::actionOf(guint key, Gdk::ModifierType state) const {
  const auto modifiers = static_cast<guint>(state) & GDK_MODIFIER_MASK & ~GDK_LOCK_MASK;
  switch (key) {
    case GDK_KEY_Page_Up:
    case GDK_KEY_KP_Page_Up: return modifiers == GDK_CONTROL_MASK ? &actions_.previous : nullptr;
    case GDK_KEY_Page_Down:
    case GDK_KEY_KP_Page_Down: return modifiers == GDK_CONTROL_MASK ? &actions_.next : nullptr;
    case GDK_KEY_F1: return modifiers == 0 ? &actions_.help : nullptr;
    default: return nullptr;
  }
}

bool PageKeys::isForNotebook() const {
  GtkWidget* const page = page_.gobj();
  GtkRoot* const root = gtk_widget_get_root(page);
  GtkWidget* const focus = root == nullptr ? nullptr : gtk_root_get_focus(root);
  if (focus == nullptr || focus == page || gtk_widget_is_ancestor(focus, page) != FALSE) {
    return false;
  }
  GtkWidget* const notebook = gtk_widget_get_ancestor(page, GTK_TYPE_NOTEBOOK);
  return notebook != nullptr &&
         (focus == notebook || gtk_widget_is_ancestor(focus, notebook) != FALSE);
}

}  // namespace cardpanels::gtk4
