#include "apps/cardprint-dialog/WindowWaiter.h"

#include <glibmm/main.h>
#include <gtkmm/button.h>
#include <gtkmm/dialog.h>
#include <gtkmm/label.h>
#include <gtkmm/progressbar.h>

#include <exception>

#include "apps/cardprint-dialog/LoginDialog.h"
#include "apps/cardprint-dialog/ToolkitErrors.h"
#include "host/ServerThread.h"
#include "platform/Messages.h"
#include "ports/gtk/MainLoop.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr unsigned kPatience = 300;  // milliseconds until the window comes
constexpr unsigned kPulse = 100;
constexpr unsigned kFarewell = 300;  // for work that was done when it was cancelled
constexpr int kDialogMargin = 18;
constexpr int kDialogWidth = 360;

/// Tells what is waited for.
class WaitDialog : public Gtk::Dialog {
 public:
  explicit WaitDialog(const std::string& what) : Gtk::Dialog(what) {
    get_content_area()->set_border_width(kDialogMargin);
    get_content_area()->set_spacing(kDialogMargin / 2);
    set_default_size(kDialogWidth, -1);
    label_.set_text(what);
    label_.set_xalign(0);
    get_content_area()->pack_start(label_);
    get_content_area()->pack_start(bar_);
    get_content_area()->show_all();
    add_button(_("_Cancel"), Gtk::RESPONSE_CANCEL);
    pulsing_ = Glib::signal_timeout().connect(
        [this] {
          bar_.pulse();
          return true;
        },
        kPulse);
  }
  ~WaitDialog() override { pulsing_.disconnect(); }

 private:
  Gtk::Label label_;
  Gtk::ProgressBar bar_;
  sigc::connection pulsing_;
};

/// What the thread and the main loop share.
struct Errand {
  Glib::RefPtr<Glib::MainLoop> loop = Glib::MainLoop::create();
  bool isDone = false;  // the main loop's
  std::exception_ptr error;
};

std::shared_ptr<void> start(const std::shared_ptr<Errand>& errand, const Waiter::Work& work,
                            const std::optional<host::Login>& login) {
  return host::startServerThread([errand, work, login](host::Abandonment& abandonment) {
    try {
      work({.abandoned = &abandonment.flag(), .login = login});
    } catch (...) {
      errand->error = std::current_exception();
    }
    gtk::postToMainLoop([errand] {
      errand->isDone = true;
      errand->loop->quit();
    });
  });
}

/// Takes no keys and clicks meanwhile.
class Insensitive {
 public:
  explicit Insensitive(Gtk::Window* window) : window_(window) {
    if (window_ != nullptr) window_->set_sensitive(false);
  }
  ~Insensitive() {
    if (window_ != nullptr) window_->set_sensitive();
  }
  Insensitive(const Insensitive&) = delete;
  Insensitive& operator=(const Insensitive&) = delete;

 private:
  Gtk::Window* window_;
};

}  // namespace

void WindowWaiter::wait(const std::string& what, Work work) {
  for (;;) {
    try {
      withoutToolkitErrors([&] { waitOnce(what, work); });
      return;
    } catch (const host::PasswordNeeded& needed) {
      login_ = askedInWindow(needed, parent_);
      if (!login_) throw Cancelled("no login");
    }
  }
}

void WindowWaiter::waitOnce(const std::string& what, const Work& work) {
  const auto errand = std::make_shared<Errand>();
  const Insensitive parent(parent_);
  WaitDialog dialog(what);
  if (parent_ != nullptr) {
    dialog.set_transient_for(*parent_);
    dialog.set_modal();
  }
  dialog.signal_response().connect([&errand](int /*response*/) { errand->loop->quit(); });
  auto thread = start(errand, work, login_);
  sigc::connection showing = Glib::signal_timeout().connect(
      [&dialog] {
        dialog.present();
        return false;
      },
      kPatience);
  errand->loop->run();
  showing.disconnect();
  if (!errand->isDone) {
    thread.reset();
    dialog.set_sensitive(false);
    Glib::signal_timeout().connect_once([errand] { errand->loop->quit(); }, kFarewell);
    errand->loop->run();
    if (!errand->isDone || errand->error) throw Cancelled(what);
  }
  if (errand->error) std::rethrow_exception(errand->error);
}

}  // namespace cardpanels::cardprint
