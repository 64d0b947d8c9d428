#include "apps/cardprint-dialog/OptionsDialog.h"

#include <gtkmm/label.h>
#include <gtkmm/scrolledwindow.h>

#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kOptionsMargin = 12;
constexpr int kOptionsWidth = 480;
constexpr int kOptionsHeight = 360;

}  // namespace

OptionsDialog::OptionsDialog(Gtk::Window& parent, host::PanelHost& panels)
    : Gtk::Dialog(_("Other Options"), parent, true), panels_(panels) {
  grid_.set_row_spacing(kOptionsMargin / 2);
  grid_.set_column_spacing(kOptionsMargin);
  grid_.property_margin() = kOptionsMargin;
  const auto rows = dialog::otherOptions(panels_.job(), panels_.claimedKeys());
  rows_.resize(rows.size());
  // Assistive technology reads a grid's last child first.
  for (std::size_t i = rows.size(); i-- > 0;) addRow(static_cast<int>(i), rows[i]);
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller->add(grid_);
  get_content_area()->set_border_width(0);
  get_content_area()->pack_start(noticeBar_, Gtk::PACK_SHRINK);
  get_content_area()->pack_start(*scroller, Gtk::PACK_EXPAND_WIDGET);
  scroller->show_all();
  refresh();
  add_button(_("_Close"), Gtk::RESPONSE_CLOSE)->get_parent()->property_margin() =
      kOptionsMargin / 2;
  set_default_size(kOptionsWidth, kOptionsHeight);
}

void OptionsDialog::addRow(int place, const dialog::OptionRow& shown) {
  auto& slot = rows_[static_cast<std::size_t>(place)];
  slot = std::make_unique<Row>(dialog::OtherOption(
      panels_.job(), shown.key,
      [this, key = shown.key](const std::string& value) { panels_.change(key, value); }));
  Row& row = *slot;
  const int line = 2 * place;
  if (!shown.fields.empty()) {
    row.fields = std::make_unique<ValueFields>(
        shown.fields, ValueFields::Actions{
                          .type = [&row](std::size_t field,
                                         const std::string& text) { row.option.type(field, text); },
                          .leave =
                              [this, &row] {
                                row.option.leave();
                                refresh();
                              },
                          .enter = [this] { finish(); }});
    grid_.attach(*row.fields, 1, line + 1);
  }
  row.box =
      std::make_unique<ChoiceBox>([this, &row](const std::string& choice) { choose(row, choice); });
  auto* const label = Gtk::make_managed<Gtk::Label>(shown.title);
  label->set_xalign(1);
  label->set_mnemonic_widget(*row.box);
  row.box->set_hexpand();
  grid_.attach(*row.box, 1, line);
  grid_.attach(*label, 0, line);
}

void OptionsDialog::choose(Row& row, const std::string& choice) {
  tell("");
  row.option.choose(choice);
  refresh();  // also when it was refused
  if (row.fields && row.fields->get_visible()) row.fields->focus(0);
}

void OptionsDialog::change() {
  while (run() == Gtk::RESPONSE_CLOSE && !finish()) {
  }
  for (const auto& each : rows_) each->option.forget();
  hide();
  tell("");
}

/// Answers whether the job has all that is typed; else the first field that is wrong has the focus.
bool OptionsDialog::finish() {
  for (const auto& each : rows_) {
    const auto wrong = each->option.finish();
    refresh();
    if (!wrong) continue;
    each->fields->focus(*wrong);
    return false;
  }
  return true;
}

void OptionsDialog::refresh() {
  for (const auto& each : rows_) {
    const auto row = each->option.row();
    std::vector<ChoiceBox::Item> items;
    for (const auto& item : row.items) items.push_back({item.choice, item.title});
    each->box->showItems(items,
                         row.chosen ? std::optional(row.items[*row.chosen].choice) : std::nullopt);
    if (!each->fields) continue;
    each->fields->showValues(row.fields);
    each->fields->set_visible(row.chosen == row.own);
  }
}

void OptionsDialog::tell(const std::string& message) {
  dialog::Notices notices;
  if (!message.empty()) notices.push_back({dialog::Notice::Kind::warning, message, {}});
  noticeBar_.display(notices);
}

}  // namespace cardpanels::cardprint
