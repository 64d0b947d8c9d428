#include "ports/gtk3/SummaryGrid.h"

#include <utility>

#include "ports/gtk3/Emphasis.h"
#include "ports/gtk3/RemoveChildren.h"

namespace cardpanels::gtk3 {
namespace {

constexpr int kBorder = 18;
constexpr int kColumnSpacing = 12;
constexpr int kRowSpacing = 6;
constexpr int kGroupSpacing = 12;
constexpr int kIndent = 12;

Gtk::Label* newLabel() {
  auto* const label = Gtk::make_managed<Gtk::Label>();
  label->set_xalign(0);
  label->set_yalign(0);
  label->set_line_wrap();
  label->set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
  return label;
}

bool hasLine(const dialog::SummaryEntry& entry) {
  return !entry.title.empty() || !entry.value.empty();
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
  if (auto parts = partsOf(summary); parts != parts_) makeLabels(std::move(parts));
  auto label = labels_.begin();
  const auto show = [&label](const std::string& text) { (*label++)->set_text(text); };
  for (const dialog::SummaryGroup& group : summary) {
    if (group.entries.empty()) continue;
    show(group.name);
    for (const dialog::SummaryEntry& entry : group.entries) {
      if (hasLine(entry)) {
        show(entry.title);
        makeBold(**label, entry.differs);
        show(entry.value);
      }
      if (!entry.remark.empty()) show(entry.remark);
    }
  }
}

std::vector<SummaryGrid::Part> SummaryGrid::partsOf(const dialog::Summary& summary) {
  std::vector<Part> parts;
  for (const dialog::SummaryGroup& group : summary) {
    if (group.entries.empty()) continue;
    parts.push_back(Part::heading);
    for (const dialog::SummaryEntry& entry : group.entries) {
      if (hasLine(entry)) parts.insert(parts.end(), {Part::title, Part::value});
      if (!entry.remark.empty()) parts.push_back(Part::remark);
    }
  }
  return parts;
}

void SummaryGrid::makeLabels(std::vector<Part> parts) {
  removeChildren(*this);
  parts_ = std::move(parts);
  labels_.assign(parts_.size(), nullptr);
  // From the end to the start: assistive technology reads a grid's last child first.
  for (std::size_t i = parts_.size(), row = i; i-- > 0;) {
    Gtk::Label* const label = labels_[i] = newLabel();
    if (parts_[i] != Part::title) --row;
    const bool isInColumn = parts_[i] == Part::title || parts_[i] == Part::value;
    attach(*label, parts_[i] == Part::value ? 1 : 0, static_cast<int>(row), isInColumn ? 1 : 2, 1);
    switch (parts_[i]) {
      case Part::heading:
        makeBold(*label, true);
        label->get_accessible()->set_role(Atk::ROLE_HEADING);
        if (i > 0) label->set_margin_top(kGroupSpacing);
        break;
      case Part::value: label->set_hexpand(); break;
      case Part::title: relate(*label, *labels_[i + 1]); [[fallthrough]];
      case Part::remark: label->set_margin_start(kIndent); break;
    }
  }
  show_all_children();
}

}  // namespace cardpanels::gtk3
