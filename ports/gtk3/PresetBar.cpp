#include "ports/gtk3/PresetBar.h"

#include <gtkmm/cellrendererpixbuf.h>
#include <gtkmm/cellrenderertext.h>
#include <gtkmm/window.h>

#include "platform/Messages.h"
#include "ports/gtk3/Captions.h"

namespace cardpanels::gtk3 {
namespace {

using platform::_;

constexpr int kRowMargin = 6;
constexpr int kShortestTitle = 10;  // characters
constexpr int kLongestTitle = 32;

}  // namespace

PresetBar::PresetBar(std::function<dialog::Presets&()> presets)
    : Gtk::Box(Gtk::ORIENTATION_HORIZONTAL, kRowMargin),
      presets_(std::move(presets)),
      entries_(Gtk::ListStore::create(columns_)),
      caption_(_("Pr_eset"), true),
      save_(_("_Save"), true),
      saveAs_(_("Save _As…"), true),
      delete_(_("_Delete"), true) {
  property_margin() = kRowMargin;
  caption_.set_mnemonic_widget(popUp_);
  auto* const title = Gtk::make_managed<Gtk::CellRendererText>();
  title->property_ellipsize() = Pango::ELLIPSIZE_END;
  title->property_width_chars() = kShortestTitle;
  title->property_max_width_chars() = kLongestTitle;
  popUp_.set_model(entries_);
  popUp_.pack_start(*title, true);
  popUp_.add_attribute(title->property_text(), columns_.title);
  auto* const icon = Gtk::make_managed<Gtk::CellRendererPixbuf>();
  popUp_.pack_start(*icon, false);
  popUp_.add_attribute(icon->property_icon_name(), columns_.icon);
  forEachAccessible(
      popUp_, [this](AtkObject* each) { atk_object_set_name(each, caption_.get_text().c_str()); });
  popUp_.signal_changed().connect(sigc::mem_fun(*this, &PresetBar::changed));

  addItem(save_, &PresetBar::save);
  addItem(saveAs_, &PresetBar::saveAs);
  addItem(delete_, &PresetBar::remove);
  menu_.show_all();
  button_.set_image_from_icon_name("open-menu-symbolic");
  button_.set_popup(menu_);
  button_.set_tooltip_text(_("Save or delete presets"));
  button_.get_accessible()->set_name(_("Save or delete presets"));

  pack_start(caption_, Gtk::PACK_SHRINK);
  pack_start(popUp_, Gtk::PACK_SHRINK);
  pack_start(state_, Gtk::PACK_SHRINK);
  pack_end(button_, Gtk::PACK_SHRINK);
  show_all_children();
  set_no_show_all();
}

void PresetBar::addItem(Gtk::MenuItem& item, void (PresetBar::*activated)()) {
  item.signal_activate().connect(sigc::mem_fun(*this, activated));
  menu_.append(item);
}

void PresetBar::display(const dialog::PresetRow& row) {
  const bool hasOtherEntries = row.entries != row_.entries;
  row_ = row;
  filling_ = true;
  if (hasOtherEntries) fill();
  popUp_.set_active(static_cast<int>(row.chosen));
  filling_ = false;
  state_.set_text(row.state);
  forEachAccessible(
      popUp_, [&row](AtkObject* each) { atk_object_set_description(each, row.state.c_str()); });
  save_.set_sensitive(row.canSave);
  delete_.set_sensitive(row.canDelete);
  set_visible(!row.entries.empty());
}

void PresetBar::fill() {
  entries_->clear();
  for (const auto& each : row_.entries) {
    auto entry = *entries_->append();
    entry[columns_.title] = each.title;
    if (each.isLocked) entry[columns_.icon] = dialog::kLockIcon;
  }
}

void PresetBar::changed() {
  const int entry = popUp_.get_active_row_number();
  if (!filling_ && entry >= 0) presets_().choose(static_cast<std::size_t>(entry));
}

void PresetBar::save() { presets_().save(); }

void PresetBar::saveAs() {
  auto* const window = dynamic_cast<Gtk::Window*>(get_toplevel());
  asking_ = std::make_unique<NameDialog>(
      window, [this](const std::string& name) { return presets_().judge(name); },
      [this](const std::string& name) { presets_().saveAs(name); });
  asking_->present();
}

void PresetBar::remove() { presets_().remove(); }

}  // namespace cardpanels::gtk3
