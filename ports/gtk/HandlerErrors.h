#pragma once

#include <sigc++/connection.h>

#include <exception>
#include <functional>

namespace cardpanels::gtk {

/// Hands what is thrown to whoever watches for it, inside a handler that GTK's code calls: no
/// exception passes through that.
void reportHandlerError();

/// Watches for what handlers of signals and tasks of the main loop throw, for its own life. Without
/// one such an exception ends the program.
class HandlerErrors {
 public:
  /// `thrown` is called inside the handler, to end the main loop.
  explicit HandlerErrors(std::function<void()> thrown);
  ~HandlerErrors();
  HandlerErrors(const HandlerErrors&) = delete;
  HandlerErrors& operator=(const HandlerErrors&) = delete;

  /// Throws what was thrown first, if anything was.
  void rethrow() const;

 private:
  void keep();

  std::function<void()> thrown_;
  std::exception_ptr first_;
  sigc::connection connection_;
};

}  // namespace cardpanels::gtk
