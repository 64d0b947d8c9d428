#include "ports/gtk4/PresetBar.h"

#include <giomm/menu.h>
#include <giomm/simpleactiongroup.h>
#include <gtkmm/root.h>
#include <gtkmm/window.h>

#include <utility>
#include <vector>

#include "platform/Messages.h"
#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/TitleRows.h"

namespace cardpanels::gtk4 {
namespace {

using platform::_;

constexpr int kRowMargin = 6;
constexpr int kShortestTitle = 10;  // characters
constexpr int kLongestTitle = 32;
constexpr const char* kActions = "presets";

}  // namespace

PresetBar::PresetBar(std::function<dialog::Presets&()> presets)
    : Gtk::Box(Gtk::Orientation::HORIZONTAL, kRowMargin),
      presets_(std::move(presets)),
      titles_(Gtk::StringList::create({})),
      caption_(_("Pr_eset"), true) {
  set_margin(kRowMargin);
  addPopUp();
  append(state_);
  addMenu();
  set_visible(false);
}

void PresetBar::addPopUp() {
  popUp_.set_factory(titleRows({kShortestTitle, kLongestTitle, [this](guint row) {
                                  const bool isLocked =
                                      row < row_.entries.size() && row_.entries[row].isLocked;
                                  return std::string(isLocked ? dialog::kLockIcon : "");
                                }}));
  popUp_.set_model(titles_);
  popUp_.property_selected().signal_changed().connect(sigc::mem_fun(*this, &PresetBar::chosen));
  caption_.set_mnemonic_widget(popUp_);
  setAccessibleName(popUp_, caption_.get_text());
  append(caption_);
  append(popUp_);
}

void PresetBar::addMenu() {
  const auto actions = Gio::SimpleActionGroup::create();
  save_ = actions->add_action("save", [this] { presets_().save(); });
  actions->add_action("save-as", sigc::mem_fun(*this, &PresetBar::saveAs));
  delete_ = actions->add_action("delete", [this] { presets_().remove(); });
  insert_action_group(kActions, actions);
  const auto menu = Gio::Menu::create();
  for (const auto& [title, action] :
       {std::pair(_("_Save"), "save"), {_("Save _As…"), "save-as"}, {_("_Delete"), "delete"}}) {
    menu->append(title, std::string(kActions) + "." + action);
  }
  button_.set_icon_name("open-menu-symbolic");
  button_.set_menu_model(menu);
  button_.set_tooltip_text(_("Save or delete presets"));
  setAccessibleName(button_, _("Save or delete presets"));
  button_.set_hexpand();
  button_.set_halign(Gtk::Align::END);
  append(button_);
}

void PresetBar::display(const dialog::PresetRow& row) {
  const bool hasOtherEntries = row.entries != row_.entries;
  row_ = row;
  displaying_ = true;
  if (hasOtherEntries) fill();
  popUp_.set_selected(static_cast<guint>(row.chosen));
  displaying_ = false;
  state_.set_text(row.state);
  state_.set_visible(!row.state.empty());
  setAccessibleDescription(popUp_, row.state);
  save_->set_enabled(row.canSave);
  delete_->set_enabled(row.canDelete);
  set_visible(!row.entries.empty());
}

void PresetBar::fill() {
  std::vector<Glib::ustring> titles;
  for (const auto& each : row_.entries) titles.emplace_back(each.title);
  titles_->splice(0, titles_->get_n_items(), titles);
}

/// A drop-down list tells twice of a choice on which another is displayed.
void PresetBar::chosen() {
  const guint entry = popUp_.get_selected();
  if (displaying_ || entry >= row_.entries.size() || entry == row_.chosen) return;
  presets_().choose(entry);
}

void PresetBar::saveAs() {
  asking_ = std::make_unique<NameDialog>(
      dynamic_cast<Gtk::Window*>(get_root()),
      [this](const std::string& name) { return presets_().judge(name); },
      [this](const std::string& name) { presets_().saveAs(name); });
  asking_->present();
}

}  // namespace cardpanels::gtk4
