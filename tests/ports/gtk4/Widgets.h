#pragma once

#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/widget.h>

#include <vector>

#include "ports/gtk4/Children.h"

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

}  // namespace cardpanels::test
