#include "ports/gtk4/NameDialog.h"

#include <gtkmm/box.h>
#include <gtkmm/grid.h>
#include <gtkmm/shortcut.h>
#include <gtkmm/shortcutaction.h>
#include <gtkmm/shortcutcontroller.h>
#include <gtkmm/shortcuttrigger.h>

#include <utility>

#include "platform/Messages.h"
#include "ports/gtk4/AccessibleName.h"

namespace cardpanels::gtk4 {
namespace {

using platform::_;

constexpr int kMargin = 12;
constexpr int kNameWidth = 24;     // characters
constexpr int kVerdictWidth = 40;  // characters

}  // namespace

NameDialog::NameDialog(Gtk::Window* parent, Judge judge, Accept accept)
    : judge_(std::move(judge)),
      accept_(std::move(accept)),
      caption_(_("_Name"), true),
      cancel_(_("_Cancel"), true),
      save_(_("_Save"), true) {
  property_accessible_role() = Gtk::Accessible::Role::DIALOG;
  set_title(_("Save Preset As"));
  if (parent != nullptr) set_transient_for(*parent);
  set_modal();
  set_resizable(false);
  set_hide_on_close();
  fill();
  closeOnEscape();
  set_default_widget(save_);
  save_.set_sensitive(false);
  name_.signal_changed().connect(sigc::mem_fun(*this, &NameDialog::typed));
  save_.signal_clicked().connect(sigc::mem_fun(*this, &NameDialog::saved));
  cancel_.signal_clicked().connect([this] { close(); });
}

void NameDialog::fill() {
  caption_.set_mnemonic_widget(name_);
  setAccessibleName(name_, caption_.get_text());
  name_.set_hexpand();
  name_.set_width_chars(kNameWidth);
  name_.set_activates_default();
  verdict_.set_wrap();
  verdict_.set_width_chars(kVerdictWidth);
  verdict_.set_max_width_chars(kVerdictWidth);
  verdict_.set_xalign(0);
  verdict_.set_yalign(0);
  auto* const fields = Gtk::make_managed<Gtk::Grid>();
  fields->set_column_spacing(kMargin);
  fields->set_row_spacing(kMargin / 2);
  fields->attach(caption_, 0, 0);
  fields->attach(name_, 1, 0);
  fields->attach(verdict_, 0, 1, 2, 1);
  auto* const buttons = Gtk::make_managed<Gtk::Box>(Gtk::Orientation::HORIZONTAL, kMargin / 2);
  buttons->set_homogeneous();
  buttons->set_halign(Gtk::Align::END);
  buttons->append(cancel_);
  buttons->append(save_);
  auto* const all = Gtk::make_managed<Gtk::Box>(Gtk::Orientation::VERTICAL, kMargin);
  all->set_margin(kMargin);
  all->append(*fields);
  all->append(*buttons);
  set_child(*all);
}

void NameDialog::closeOnEscape() {
  const auto keys = Gtk::ShortcutController::create();
  keys->add_shortcut(Gtk::Shortcut::create(Gtk::KeyvalTrigger::create(GDK_KEY_Escape),
                                           Gtk::NamedAction::create("window.close")));
  add_controller(keys);
}

void NameDialog::typed() {
  const auto verdict = judge_(name_.get_text());
  save_.set_sensitive(verdict.isGood);
  verdict_.set_text(verdict.told);
  setAccessibleDescription(name_, verdict.told);
}

void NameDialog::saved() {
  set_visible(false);
  accept_(name_.get_text());
}

}  // namespace cardpanels::gtk4
