#pragma once

#include <gtkmm/container.h>
#include <gtkmm/label.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/support/Place.h"

namespace cardpanels::test {

template <class Type>
bool isA(Gtk::Widget* widget) {
  return dynamic_cast<Type*>(widget) != nullptr;
}

template <class... Types>
void collect(Gtk::Widget& widget, std::vector<Gtk::Widget*>& found) {
  if ((... || isA<Types>(&widget))) found.push_back(&widget);
  auto* const container = dynamic_cast<Gtk::Container*>(&widget);
  if (container == nullptr) return;
  for (auto* child : container->get_children()) collect<Types...>(*child, found);
}

/// All widgets of these types inside `widget`, in the order that assistive technology reads.
template <class... Types>
std::vector<Gtk::Widget*> all(Gtk::Widget& widget) {
  std::vector<Gtk::Widget*> found;
  collect<Types...>(widget, found);
  return found;
}

/// The one widget of that type inside `widget`.
template <class Type>
Type& only(Gtk::Widget& widget) {
  const auto found = all<Type>(widget);
  if (found.size() != 1) throw std::logic_error(std::to_string(found.size()) + " widgets");
  return dynamic_cast<Type&>(*found.front());
}

/// The widget of that type with that label inside `widget`, its mnemonic left out.
template <class Type = Gtk::Label>
Type& labelled(Gtk::Widget& widget, const std::string& label) {
  for (Gtk::Widget* each : all<Type>(widget)) {
    std::string own = dynamic_cast<Type&>(*each).get_label();
    std::erase(own, '_');
    if (own == label) return dynamic_cast<Type&>(*each);
  }
  throw std::logic_error("nothing is labelled " + label);
}

inline Place placeOf(Gtk::Widget& widget) {
  Place place;
  if (!widget.translate_coordinates(*widget.get_toplevel(), 0, 0, place.left, place.top)) {
    throw std::logic_error("a widget in no window has no place");
  }
  place.right = place.left + widget.get_allocated_width();
  place.bottom = place.top + widget.get_allocated_height();
  return place;
}

}  // namespace cardpanels::test
