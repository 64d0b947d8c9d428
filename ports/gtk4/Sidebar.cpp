#include "ports/gtk4/Sidebar.h"

#include <gtkmm/box.h>
#include <gtkmm/label.h>

#include "ports/gtk4/AccessibleName.h"

namespace cardpanels::gtk4 {
namespace {

constexpr int kRowPadding = 8;

}  // namespace

// GTK has types by name; the widget's own is no longer just a list box.
Sidebar::Sidebar() : Glib::ObjectBase("CardpanelsSidebar") {
  set_selection_mode(Gtk::SelectionMode::BROWSE);
}

void Sidebar::addName(const std::string& name) {
  auto* const label = Gtk::make_managed<Gtk::Label>(name);
  label->set_xalign(0);
  label->set_margin(kRowPadding);
  label->set_hexpand();
  auto* const sign = Gtk::make_managed<Gtk::Image>();
  sign->set_from_icon_name("dialog-warning-symbolic");
  sign->set_margin_end(kRowPadding);
  sign->set_visible(false);
  signs_.push_back(sign);
  auto* const line = Gtk::make_managed<Gtk::Box>();
  line->append(*label);
  line->append(*sign);
  auto* const row = Gtk::make_managed<Gtk::ListBoxRow>();
  row->set_child(*line);
  setAccessibleName(*row, name);
  append(*row);
}

void Sidebar::mark(std::size_t row, const std::string& why) {
  signs_[row]->set_visible(!why.empty());
  auto* const marked = get_row_at_index(static_cast<int>(row));
  marked->set_tooltip_text(why);
  setAccessibleDescription(*marked, why);
}

void Sidebar::select(std::size_t row) {
  auto* const selected = get_row_at_index(static_cast<int>(row));
  if (selected == nullptr) return;
  select_row(*selected);
  if (get_focus_child() != nullptr && !selected->is_focus()) selected->grab_focus();
}

bool Sidebar::moveFocus(GtkDirectionType direction) {
  if (!isTab(direction)) return moveFocusAsUsual(*this, direction);
  auto* const selected = get_selected_row();
  if (get_focus_child() != nullptr || selected == nullptr) return false;
  selected->grab_focus();
  return true;
}

}  // namespace cardpanels::gtk4
