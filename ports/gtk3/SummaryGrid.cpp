#include "ports/gtk3/SummaryGrid.h"

#include <algorithm>
#include <numeric>

#include "ports/gtk3/Emphasis.h"
#include "ports/gtk3/RemoveChildren.h"

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
  makeBold(*heading, true);
  heading->get_accessible()->set_role(Atk::ROLE_HEADING);
  return heading;
}

int height(const dialog::SummaryEntry& entry) {
  const bool hasLine = !entry.title.empty() || !entry.value.empty();
  return (hasLine ? 1 : 0) + (entry.remark.empty() ? 0 : 1);
}

int height(const dialog::SummaryGroup& group) {
  if (group.entries.empty()) return 0;
  return std::accumulate(group.entries.begin(), group.entries.end(), 1,
                         [](int sum, const auto& entry) { return sum + height(entry); });
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
  removeChildren(*this);
  int row = 0;
  for (const auto& group : summary) row += height(group);
  // From the end to the start: assistive technology reads a grid's last child first.
  std::for_each(summary.rbegin(), summary.rend(), [&](const dialog::SummaryGroup& group) {
    if (group.entries.empty()) return;
    std::for_each(group.entries.rbegin(), group.entries.rend(),
                  [&](const dialog::SummaryEntry& entry) { attachEntry(row, entry); });
    auto* const heading = newHeading(group.name);
    if (--row > 0) heading->set_margin_top(kGroupSpacing);
    attach(*heading, 0, row, 2, 1);
  });
  show_all_children();
}

void SummaryGrid::attachEntry(int& row, const dialog::SummaryEntry& entry) {
  if (!entry.remark.empty()) attachText(--row, entry.remark);
  if (entry.title.empty() && entry.value.empty()) return;
  --row;
  auto* const title = newLabel(entry.title);
  title->set_margin_start(kIndent);
  auto* const value = newLabel(entry.value);
  makeBold(*value, entry.differs);
  value->set_hexpand();
  relate(*title, *value);
  attach(*value, 1, row);
  attach(*title, 0, row);
}

/// Over both columns.
void SummaryGrid::attachText(int row, const std::string& text) {
  auto* const label = newLabel(text);
  label->set_margin_start(kIndent);
  attach(*label, 0, row, 2, 1);
}

}  // namespace cardpanels::gtk3
