#include "ports/gtk3/SummaryGrid.h"

#include <gtkmm/label.h>
#include <pangomm/attributes.h>

#include <algorithm>

namespace cardpanels::gtk3 {
namespace {

constexpr int kBorder = 18;
constexpr int kColumnSpacing = 12;
constexpr int kRowSpacing = 6;
constexpr int kGroupSpacing = 12;
constexpr int kIndent = 12;

Gtk::Label* newLabel(const std::string& text) {
  auto* const label = Gtk::make_managed<Gtk::Label>(text);
  label->set_xalign(0);
  label->set_yalign(0);
  label->set_line_wrap();
  label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
  return label;
}

Gtk::Label* newHeading(const std::string& text) {
  auto* const heading = newLabel(text);
  Pango::AttrList attributes;
  auto bold = Pango::Attribute::create_attr_weight(Pango::WEIGHT_BOLD);
  attributes.insert(bold);
  heading->set_attributes(attributes);
  heading->get_accessible()->set_role(Atk::ROLE_HEADING);
  return heading;
}

int groupHeight(const dialog::SummaryGroup& group) {
  const auto entries = static_cast<int>(group.entries->size());
  return entries > 0 ? 1 + entries : 0;
}

/// Tells assistive technology that `title` is what `value` is called.
void relate(Gtk::Label& title, Gtk::Label& value) {
  AtkObject* const titleObject = title.get_accessible()->gobj();
  AtkObject* const valueObject = value.get_accessible()->gobj();
  atk_object_add_relationship(titleObject, ATK_RELATION_LABEL_FOR, valueObject);
  atk_object_add_relationship(valueObject, ATK_RELATION_LABELLED_BY, titleObject);
}

}  // namespace

SummaryGrid::SummaryGrid() {
  property_margin() = kBorder;
  set_column_spacing(kColumnSpacing);
  set_row_spacing(kRowSpacing);
}

void SummaryGrid::display(const dialog::Summary& summary) {
  for (Gtk::Widget* child : get_children()) remove(*child);
  int row = 0;
  for (const auto& group : summary) row += groupHeight(group);
  // From the end to the start: assistive technology reads a grid's last child first.
  std::for_each(summary.rbegin(), summary.rend(), [&](const dialog::SummaryGroup& group) {
    if (group.entries->empty()) return;
    std::vector<platform::Dictionary::Entry> entries(group.entries->begin(), group.entries->end());
    std::reverse(entries.begin(), entries.end());
    for (const auto& [title, value] : entries) attachRow(--row, title, value);
    auto* const heading = newHeading(group.name);
    if (--row > 0) heading->set_margin_top(kGroupSpacing);
    attach(*heading, 0, row, 2, 1);
  });
  show_all_children();
}

void SummaryGrid::attachRow(int row, const std::string& title, const std::string& value) {
  auto* const titleLabel = newLabel(title);
  titleLabel->set_margin_start(kIndent);
  auto* const valueLabel = newLabel(value);
  valueLabel->set_hexpand();
  relate(*titleLabel, *valueLabel);
  attach(*valueLabel, 1, row);
  attach(*titleLabel, 0, row);
}

}  // namespace cardpanels::gtk3
