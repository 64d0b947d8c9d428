#include "ports/gtk4/TabOrder.h"

#include <algorithm>

namespace cardpanels::gtk4 {
namespace {

gboolean move(GtkWidget* widget, GtkDirectionType direction) {
  auto* const mover = dynamic_cast<FocusMover*>(Glib::wrap(widget));
  return mover != nullptr && mover->moveFocus(direction) ? TRUE : FALSE;
}

void initClass(void* type, void* /*data*/) { static_cast<GtkWidgetClass*>(type)->focus = move; }

}  // namespace

FocusMover::FocusMover() : Glib::ExtraClassInit(initClass) {}
FocusMover::~FocusMover() = default;

bool FocusMover::moveFocusAsUsual(Gtk::Widget& widget, GtkDirectionType direction) {
  const auto* type = GTK_WIDGET_GET_CLASS(widget.gobj());
  while (type->focus == move) {
    type = static_cast<const GtkWidgetClass*>(
        g_type_class_peek_parent(const_cast<GtkWidgetClass*>(type)));
  }
  return type->focus(widget.gobj(), direction) != FALSE;
}

bool tabThrough(Gtk::Widget& widget, std::vector<Gtk::Widget*> children,
                GtkDirectionType direction) {
  if (direction == GTK_DIR_TAB_BACKWARD) std::reverse(children.begin(), children.end());
  const GtkWidget* const focused = gtk_widget_get_focus_child(widget.gobj());
  auto each = std::find_if(children.begin(), children.end(),
                           [focused](Gtk::Widget* child) { return child->gobj() == focused; });
  if (each == children.end()) each = children.begin();
  return std::any_of(each, children.end(), [direction](Gtk::Widget* child) {
    return gtk_widget_child_focus(child->gobj(), direction) != FALSE;
  });
}

}  // namespace cardpanels::gtk4
