#include "ports/gtk3/Sidebar.h"

#include <gtkmm/box.h>
#include <gtkmm/label.h>

namespace cardpanels::gtk3 {
namespace {

constexpr int kRowPadding = 8;

}  // namespace

void Sidebar::addName(const std::string& name) {
  auto* const label = Gtk::make_managed<Gtk::Label>(name);
  label->set_xalign(0);
  label->property_margin() = kRowPadding;
  auto* const sign = Gtk::make_managed<Gtk::Image>();
  sign->set_from_icon_name("dialog-warning-symbolic", Gtk::ICON_SIZE_MENU);
  sign->set_margin_end(kRowPadding);
  sign->set_no_show_all();
  signs_.push_back(sign);
  auto* const line = Gtk::make_managed<Gtk::Box>();
  line->pack_start(*label, Gtk::PACK_EXPAND_WIDGET);
  line->pack_start(*sign, Gtk::PACK_SHRINK);
  auto* const row = Gtk::make_managed<Gtk::ListBoxRow>();
  row->add(*line);
  row->get_accessible()->set_name(name);
  append(*row);
}

void Sidebar::mark(std::size_t row, const std::string& why) {
  signs_[row]->set_visible(!why.empty());
  auto* const marked = get_row_at_index(static_cast<int>(row));
  marked->set_tooltip_text(why);
  marked->get_accessible()->set_description(why);
}

void Sidebar::select(std::size_t row) {
  auto* const selected = get_row_at_index(static_cast<int>(row));
  if (selected == nullptr) return;
  select_row(*selected);
  if (get_focus_child() != nullptr && !selected->is_focus()) selected->grab_focus();
}

bool Sidebar::on_focus(Gtk::DirectionType direction) {
  if (direction != Gtk::DIR_TAB_FORWARD && direction != Gtk::DIR_TAB_BACKWARD) {
    return Gtk::ListBox::on_focus(direction);
  }
  auto* const selected = get_selected_row();
  if (get_focus_child() != nullptr || selected == nullptr) return false;
  selected->grab_focus();
  return true;
}

}  // namespace cardpanels::gtk3
