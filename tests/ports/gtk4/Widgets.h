#pragma once

#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/label.h>
#include <gtkmm/widget.h>

#include <cmath>
#include <stdexcept>
#include <string>
#include <vector>

#include "ports/gtk4/Children.h"
#include "tests/support/Place.h"

namespace cardpanels::test {

template <class Type>
bool isA(Gtk::Widget* widget) {
  return dynamic_cast<Type*>(widget) != nullptr;
}

template <class... Types>
void collect(Gtk::Widget& widget, std::vector<Gtk::Widget*>& found) {
  if ((... || isA<Types>(&widget))) found.push_back(&widget);
  if (dynamic_cast<Gtk::DropDown*>(&widget) != nullptr) return;
  if (dynamic_cast<Gtk::Entry*>(&widget) != nullptr) return;
  gtk4::forEachChild(widget, [&found](Gtk::Widget& child) { collect<Types...>(child, found); });
}

/// All widgets of these types inside `widget`, in the order that assistive technology reads, but
/// for the parts of drop-down lists and entries.
template <class... Types>
std::vector<Gtk::Widget*> all(Gtk::Widget& widget) {
  std::vector<Gtk::Widget*> found;
  collect<Types...>(widget, found);
  return found;
}

/// The label with that text inside `widget`.
inline Gtk::Label& labelled(Gtk::Widget& widget, const std::string& text) {
  for (Gtk::Widget* each : all<Gtk::Label>(widget)) {
    auto& label = dynamic_cast<Gtk::Label&>(*each);
    if (label.get_text().raw() == text) return label;
  }
  throw std::logic_error("nothing is labelled " + text);
}

inline Place placeOf(Gtk::Widget& widget) {
  graphene_rect_t bounds;
  auto* const window = GTK_WIDGET(gtk_widget_get_root(widget.gobj()));
  if (gtk_widget_compute_bounds(widget.gobj(), window, &bounds) == FALSE) {
    throw std::logic_error("a widget in no window has no place");
  }
  const auto pixels = [](float length) { return static_cast<int>(std::lround(length)); };
  const int left = pixels(bounds.origin.x);
  const int top = pixels(bounds.origin.y);
  return {left, top, left + pixels(bounds.size.width), top + pixels(bounds.size.height)};
}

}  // namespace cardpanels::test
