#include "ports/gtk4/SummaryGrid.h"

#include "ports/gtk4/Children.h"
#include "ports/gtk4/Emphasis.h"

namespace cardpanels::gtk4 {
namespace {

constexpr int kSummaryBorder = 18;
constexpr int kColumnSpacing = 12;
constexpr int kRowSpacing = 6;
constexpr int kGroupSpacing = 12;
constexpr int kIndent = 12;

Gtk::Label* newLabel(const std::string& text) {
  auto* const label = Gtk::make_managed<Gtk::Label>(text);
  label->set_xalign(0);
  label->set_yalign(0);
  label->set_wrap();
  label->set_wrap_mode(Pango::WrapMode::WORD_CHAR);
  return label;
}

/// Tells assistive technology that `title` is what `value` is called.
void relate(Gtk::Label& title, Gtk::Label& value) {
  gtk_accessible_update_relation(GTK_ACCESSIBLE(value.gobj()), GTK_ACCESSIBLE_RELATION_LABELLED_BY,
                                 title.gobj(), nullptr, -1);
}

}  // namespace

SummaryGrid::SummaryGrid() {
  set_margin(kSummaryBorder);
  set_column_spacing(kColumnSpacing);
  set_row_spacing(kRowSpacing);
}

void SummaryGrid::display(const dialog::Summary& summary) {
  removeChildren(*this);
  rows_ = 0;
  for (const auto& group : summary) {
    if (group.entries.empty()) continue;
    attachHeading(group.name);
    for (const auto& entry : group.entries) attachEntry(entry);
  }
}

void SummaryGrid::attachHeading(const std::string& name) {
  auto* const heading = newLabel(name);
  makeBold(*heading, true);
  heading->property_accessible_role() = Gtk::Accessible::Role::HEADING;
  if (rows_ > 0) heading->set_margin_top(kGroupSpacing);
  attach(*heading, 0, rows_++, 2, 1);
}

void SummaryGrid::attachEntry(const dialog::SummaryEntry& entry) {
  if (!entry.title.empty() || !entry.value.empty()) {
    auto* const title = newLabel(entry.title);
    title->set_margin_start(kIndent);
    auto* const value = newLabel(entry.value);
    makeBold(*value, entry.differs);
    value->set_hexpand();
    relate(*title, *value);
    attach(*title, 0, rows_);
    attach(*value, 1, rows_++);
  }
  if (entry.remark.empty()) return;
  auto* const remark = newLabel(entry.remark);
  remark->set_margin_start(kIndent);
  attach(*remark, 0, rows_++, 2, 1);
}

}  // namespace cardpanels::gtk4
