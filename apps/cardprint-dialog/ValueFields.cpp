#include "apps/cardprint-dialog/ValueFields.h"

#include <utility>

#include "ports/gtk3/EntryMark.h"

namespace cardpanels::cardprint {
namespace {

constexpr int kFieldMargin = 6;
constexpr int kFaultWidth = 40;  // characters

}  // namespace

ValueFields::ValueFields(const std::vector<dialog::ValueField>& fields, Actions actions)
    : actions_(std::move(actions)) {
  set_row_spacing(kFieldMargin);
  set_column_spacing(kFieldMargin);
  fault_.set_line_wrap();
  fault_.set_max_width_chars(kFaultWidth);
  fault_.set_xalign(0);
  fault_.set_no_show_all();
  // Assistive technology reads a grid's last child first.
  const auto count = static_cast<int>(fields.size());
  attach(fault_, 0, count, 2, 1);
  entries_.resize(fields.size());
  for (int row = count - 1; row >= 0; --row) {
    const auto i = static_cast<std::size_t>(row);
    auto* const entry = entries_[i] = Gtk::make_managed<Gtk::Entry>();
    entry->set_hexpand();
    entry->set_visibility(!fields[i].isSecret);
    if (fields[i].isSecret) entry->set_input_purpose(Gtk::INPUT_PURPOSE_PASSWORD);
    entry->get_accessible()->set_name(fields[i].name);
    entry->signal_changed().connect([this, i, entry] {
      if (!isShowing_) actions_.type(i, entry->get_text());
    });
    entry->signal_activate().connect([this] { actions_.enter(); });
    entry->signal_focus_out_event().connect([this](GdkEventFocus* /*event*/) {
      actions_.leave();
      return false;
    });
    auto* const label = Gtk::make_managed<Gtk::Label>(fields[i].title);
    label->set_xalign(1);
    label->set_mnemonic_widget(*entry);
    attach(*entry, 1, row);
    attach(*label, 0, row);
  }
  show_all();
}

void ValueFields::showValues(const std::vector<dialog::ValueField>& fields) {
  isShowing_ = true;
  std::string fault;
  for (std::size_t i = 0; i < fields.size(); ++i) {
    Gtk::Entry& entry = *entries_[i];
    if (entry.get_text() != fields[i].text) entry.set_text(fields[i].text);
    const bool isWrong = !fields[i].fault.empty();
    gtk3::markEntry(entry, isWrong ? platform::Text(fields[i].fault) : std::nullopt);
    if (fault.empty()) fault = fields[i].fault;
  }
  isShowing_ = false;
  fault_.set_text(fault);
  fault_.set_visible(!fault.empty());
}

}  // namespace cardpanels::cardprint
