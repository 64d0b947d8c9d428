#pragma once

#include <gtkmm/container.h>

#include <vector>

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

}  // namespace cardpanels::test
