#include "apps/cardprint-dialog/OptionsDialog.h"

#include <gtkmm/label.h>
#include <gtkmm/scrolledwindow.h>

#include "dialog/OtherOptions.h"
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
  // Assistive technology reads a grid's last child first.
  for (auto i = static_cast<int>(rows.size()) - 1; i >= 0; --i) {
    const std::string& key = rows[static_cast<std::size_t>(i)].key;
    auto box = std::make_unique<ChoiceBox>([this, key](const std::string& choice) {
      tell("");
      panels_.change(key, choice);
      refresh();  // also when it was refused
    });
    auto* const label = Gtk::make_managed<Gtk::Label>(rows[static_cast<std::size_t>(i)].title);
    label->set_xalign(1);
    label->set_mnemonic_widget(*box);
    box->set_hexpand();
    grid_.attach(*box, 1, i);
    grid_.attach(*label, 0, i);
    boxes_[key] = std::move(box);
  }
  refresh();
  auto* const scroller = Gtk::make_managed<Gtk::ScrolledWindow>();
  scroller->set_policy(Gtk::POLICY_NEVER, Gtk::POLICY_AUTOMATIC);
  scroller->add(grid_);
  get_content_area()->set_border_width(0);
  get_content_area()->pack_start(noticeBar_, Gtk::PACK_SHRINK);
  get_content_area()->pack_start(*scroller, Gtk::PACK_EXPAND_WIDGET);
  scroller->show_all();
  add_button(_("_Close"), Gtk::RESPONSE_CLOSE)->get_parent()->property_margin() =
      kOptionsMargin / 2;
  set_default_size(kOptionsWidth, kOptionsHeight);
}

void OptionsDialog::refresh() {
  for (const auto& [key, box] : boxes_) {
    const auto row = dialog::optionRow(panels_.job(), key);
    std::vector<ChoiceBox::Item> items;
    for (const auto& each : row.items) items.push_back({each.choice, each.title});
    box->showItems(items, row.chosen ? std::optional(row.items[*row.chosen].choice) : std::nullopt);
  }
}

void OptionsDialog::tell(const std::string& message) {
  dialog::Notices notices;
  if (!message.empty()) notices.push_back({dialog::Notice::Kind::warning, message, {}});
  noticeBar_.display(notices);
}

}  // namespace cardpanels::cardprint
