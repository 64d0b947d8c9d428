#include "ports/gtk3/SummaryGrid.h"

#include <gtkmm/label.h>
#include <pangomm/attributes.h>

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

void SummaryGrid::clear() {
  for (Gtk::Widget* child : get_children()) remove(*child);
  rows_ = 0;
}

void SummaryGrid::add(const std::string& panelName, const platform::Dictionary& summary) {
  if (summary.empty()) return;
  auto* const heading = newHeading(panelName);
  if (rows_ > 0) heading->set_margin_top(kGroupSpacing);
  attach(*heading, 0, rows_++, 2, 1);
  for (const auto& [title, value] : summary) addRow(title, value);
  show_all_children();
}

void SummaryGrid::addRow(const std::string& title, const std::string& value) {
  auto* const titleLabel = newLabel(title);
  titleLabel->set_margin_start(kIndent);
  titleLabel->get_style_context()->add_class("dim-label");
  auto* const valueLabel = newLabel(value);
  valueLabel->set_hexpand();
  relate(*titleLabel, *valueLabel);
  attach(*titleLabel, 0, rows_);
  attach(*valueLabel, 1, rows_++);
}

}  // namespace cardpanels::gtk3
