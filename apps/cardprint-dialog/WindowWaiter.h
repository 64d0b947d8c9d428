#pragma once

#include <gtkmm/window.h>

#include <optional>

#include "apps/cardprint/Waiter.h"

namespace cardpanels::cardprint {

/// Waits beside the main loop, with a small window that tells what for and can be cancelled, and
/// one that asks for a password. Needs GTK to be initialised.
class WindowWaiter final : public Waiter {
 public:
  void wait(const std::string& what, Work work) override;

  /// The window that has to wait too, from now on; null for none.
  void setParent(Gtk::Window* parent) { parent_ = parent; }

  /// What the user has logged in with.
  const std::optional<host::Login>& login() const { return login_; }
  void setLogin(const host::Login& login) { login_ = login; }

 private:
  void waitOnce(const std::string& what, const Work& work);

  Gtk::Window* parent_ = nullptr;
  std::optional<host::Login> login_;
};

}  // namespace cardpanels::cardprint
