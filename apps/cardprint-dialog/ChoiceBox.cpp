#include "apps/cardprint-dialog/ChoiceBox.h"

#include <gtkmm/cellrenderertext.h>

#include <utility>

namespace cardpanels::cardprint {
namespace {

constexpr int kBoxWidth = 12;  // characters, where the texts are longer

}  // namespace

ChoiceBox::ChoiceBox(std::function<void(const std::string&)> chosen) : chosen_(std::move(chosen)) {
  columns_.add(text_);
  rows_ = Gtk::ListStore::create(columns_);
  set_model(rows_);
  auto* const renderer = Gtk::make_managed<Gtk::CellRendererText>();
  renderer->property_ellipsize() = Pango::ELLIPSIZE_END;
  renderer->property_width_chars() = kBoxWidth;
  pack_start(*renderer, true);
  add_attribute(*renderer, "text", text_);
  set_row_separator_func(
      [this](const Glib::RefPtr<Gtk::TreeModel>& /*model*/, const Gtk::TreeIter& row) {
        return row->get_value(text_).empty();
      });
  signal_changed().connect([this] { rowChanged(); });
}

void ChoiceBox::showItems(std::vector<Item> items, const std::optional<std::string>& value) {
  isShowing_ = true;
  // Rows that stay keep an open list open.
  for (std::size_t i = items.size(); i < items_.size(); ++i)
    rows_->erase(--rows_->children().end());
  for (std::size_t i = 0; i < items.size(); ++i) {
    const bool isOld = i < items_.size();
    if (isOld && items_[i] == items[i]) continue;
    const auto row = isOld ? rows_->children()[static_cast<unsigned>(i)] : *rows_->append();
    row[text_] = items[i].text;
  }
  items_ = std::move(items);
  int active = -1;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (value && !items_[i].text.empty() && items_[i].value == *value) active = static_cast<int>(i);
  }
  if (get_active_row_number() != active) set_active(active);
  isShowing_ = false;
}

void ChoiceBox::rowChanged() {
  const int row = get_active_row_number();
  if (isShowing_ || row < 0) return;
  const std::string value = items_[static_cast<std::size_t>(row)].value;
  chosen_(value);
}

}  // namespace cardpanels::cardprint
