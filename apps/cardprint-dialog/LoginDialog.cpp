#include "apps/cardprint-dialog/LoginDialog.h"

#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <gtkmm/grid.h>
#include <gtkmm/label.h>

#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr int kLoginMargin = 12;
constexpr int kTextWidth = 48;  // characters

class LoginDialog : public Gtk::Dialog {
 public:
  explicit LoginDialog(const host::PasswordNeeded& needed) : Gtk::Dialog(_("Password Needed")) {
    text_.set_text(needed.what());
    text_.set_line_wrap();
    text_.set_max_width_chars(kTextWidth);
    text_.set_xalign(0);
    user_.set_text(needed.user());
    password_.set_visibility(false);
    password_.set_input_purpose(Gtk::INPUT_PURPOSE_PASSWORD);
    grid_.set_row_spacing(kLoginMargin / 2);
    grid_.set_column_spacing(kLoginMargin);
    // Assistive technology reads a grid's last child first.
    addRow(2, passwordLabel_, password_);
    addRow(1, userLabel_, user_);
    grid_.attach(text_, 0, 0, 2, 1);
    get_content_area()->set_border_width(kLoginMargin);
    get_content_area()->set_spacing(kLoginMargin);
    get_content_area()->pack_start(grid_);
    get_content_area()->show_all();
    add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
    add_button(_("_Log In"), Gtk::RESPONSE_OK);
    set_default_response(Gtk::RESPONSE_OK);
    password_.grab_focus();
  }

  host::Login login() const { return {user_.get_text(), password_.get_text()}; }

 private:
  void addRow(int row, Gtk::Label& label, Gtk::Entry& entry) {
    label.set_xalign(1);
    label.set_mnemonic_widget(entry);
    entry.set_hexpand();
    entry.set_activates_default();
    grid_.attach(entry, 1, row);
    grid_.attach(label, 0, row);
  }

  Gtk::Grid grid_;
  Gtk::Label text_;
  Gtk::Label userLabel_{_("_User name"), true};
  Gtk::Label passwordLabel_{_("_Password"), true};
  Gtk::Entry user_;
  Gtk::Entry password_;
};

}  // namespace

std::optional<host::Login> askedInWindow(const host::PasswordNeeded& needed, Gtk::Window* parent) {
  LoginDialog dialog(needed);
  if (parent != nullptr) dialog.set_transient_for(*parent);
  if (dialog.run() != Gtk::RESPONSE_OK) return std::nullopt;
  return dialog.login();
}

}  // namespace cardpanels::cardprint
