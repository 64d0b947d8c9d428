#pragma once

#include <glibmm/extraclassinit.h>
#include <gtkmm/enums.h>
#include <gtkmm/widget.h>

#include <vector>

namespace cardpanels::gtk4 {

/// A base, before its widget's, of widgets that decide themselves how the focus moves among their
/// children. GTK asks them by a function of their class, which gtkmm does not offer.
class FocusMover : public Glib::ExtraClassInit {
 public:
  FocusMover();
  FocusMover(const FocusMover&) = delete;
  FocusMover& operator=(const FocusMover&) = delete;
  ~FocusMover() override;

  /// Moves the focus inside of the widget, or into it. False when it leaves it.
  virtual bool moveFocus(GtkDirectionType direction) = 0;

 protected:
  /// What the widget would do by itself.
  static bool moveFocusAsUsual(Gtk::Widget& widget, GtkDirectionType direction);
};

inline bool isTab(GtkDirectionType direction) {
  return direction == GTK_DIR_TAB_FORWARD || direction == GTK_DIR_TAB_BACKWARD;
}

/// Moves the focus with Tab through `children` of `widget` in this order, not by where they stand.
bool tabThrough(Gtk::Widget& widget, std::vector<Gtk::Widget*> children,
                GtkDirectionType direction);

}  // namespace cardpanels::gtk4
