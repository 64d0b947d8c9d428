#include "ports/gtk3/NameDialog.h"

#include <utility>

#include "platform/Messages.h"

namespace cardpanels::gtk3 {
namespace {

using platform::_;

constexpr int kMargin = 12;
constexpr int kNameWidth = 24;     // characters
constexpr int kVerdictWidth = 40;  // characters

}  // namespace

NameDialog::NameDialog(Gtk::Window* parent, Judge judge, Accept accept)
    : Gtk::Dialog(_("Save Preset As")),
      judge_(std::move(judge)),
      accept_(std::move(accept)),
      caption_(_("_Name"), true) {
  if (parent != nullptr) set_transient_for(*parent);
  set_modal();
  set_resizable(false);
  caption_.set_mnemonic_widget(name_);
  name_.set_hexpand();
  name_.set_width_chars(kNameWidth);
  name_.set_activates_default();
  name_.signal_changed().connect(sigc::mem_fun(*this, &NameDialog::typed));
  verdict_.set_line_wrap();
  verdict_.set_width_chars(kVerdictWidth);
  verdict_.set_max_width_chars(kVerdictWidth);
  verdict_.set_lines(2);
  verdict_.set_xalign(0);
  verdict_.set_yalign(0);
  grid_.set_column_spacing(kMargin);
  grid_.set_row_spacing(kMargin / 2);
  // Assistive technology reads a grid's last child first.
  grid_.attach(verdict_, 0, 1, 2, 1);
  grid_.attach(name_, 1, 0);
  grid_.attach(caption_, 0, 0);
  get_content_area()->set_border_width(kMargin);
  get_content_area()->set_spacing(kMargin);
  get_content_area()->pack_start(grid_);
  get_content_area()->show_all();
  add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
  add_button(_("_Save"), Gtk::RESPONSE_OK);
  set_default_response(Gtk::RESPONSE_OK);
  set_response_sensitive(Gtk::RESPONSE_OK, false);
}

void NameDialog::typed() {
  const auto verdict = judge_(name_.get_text());
  set_response_sensitive(Gtk::RESPONSE_OK, verdict.isGood);
  verdict_.set_text(verdict.told);
  name_.get_accessible()->set_description(verdict.told);
}

void NameDialog::on_response(int response) {
  hide();
  if (response == Gtk::RESPONSE_OK) accept_(name_.get_text());
}

}  // namespace cardpanels::gtk3
