#include "ports/gtk3/PageKeys.h"

#include <gdk/gdkkeysyms.h>
#include <gtkmm/notebook.h>
#include <gtkmm/window.h>

#include <utility>

namespace cardpanels::gtk3 {

PageKeys::PageKeys(Gtk::Widget& page, Actions actions) : page_(page), actions_(std::move(actions)) {
  mapped_ = page_.signal_map().connect([this] { connect(); });
  unmapped_ = page_.signal_unmap().connect([this] { keys_.disconnect(); });
}

PageKeys::~PageKeys() {
  mapped_.disconnect();
  unmapped_.disconnect();
  keys_.disconnect();
}

/// Before the window's own handler, which asks the widgets around the focus first: a notebook
/// inside the page would take the keys.
void PageKeys::connect() {
  keys_.disconnect();
  keys_ = page_.get_toplevel()->signal_key_press_event().connect(
      [this](GdkEventKey* event) { return pressed(*event); }, false);
}

bool PageKeys::pressed(const GdkEventKey& event) {
  const auto* const action = actionOf(event);
  if (action == nullptr || (action != &actions_.help && isForNotebook())) return false;
  (*action)();
  return true;
}

/// Null for a key that does nothing here.
const std::function<void()>* PageKeys::actionOf(const GdkEventKey& event) const {
  const guint modifiers = event.state & gtk_accelerator_get_default_mod_mask();
  switch (event.keyval) {
    case GDK_KEY_Page_Up:
    case GDK_KEY_KP_Page_Up: return modifiers == GDK_CONTROL_MASK ? &actions_.previous : nullptr;
    case GDK_KEY_Page_Down:
    case GDK_KEY_KP_Page_Down: return modifiers == GDK_CONTROL_MASK ? &actions_.next : nullptr;
    case GDK_KEY_F1: return modifiers == 0 ? &actions_.help : nullptr;
    default: return nullptr;
  }
}

bool PageKeys::isForNotebook() const {
  auto* const window = dynamic_cast<Gtk::Window*>(page_.get_toplevel());
  auto* const focus = window == nullptr ? nullptr : window->get_focus();
  if (focus == nullptr || focus == &page_ || focus->is_ancestor(page_)) return false;
  auto* const notebook = page_.get_ancestor(GTK_TYPE_NOTEBOOK);
  return notebook != nullptr && (focus == notebook || focus->is_ancestor(*notebook));
}

}  // namespace cardpanels::gtk3
