#include "ports/gtk/HandlerErrors.h"

#include <glibmm/exceptionhandler.h>
#include <sigc++/sigc++.h>

#include <utility>

namespace cardpanels::gtk {

void reportHandlerError() { Glib::exception_handlers_invoke(); }

HandlerErrors::HandlerErrors(std::function<void()> thrown)
    : thrown_(std::move(thrown)),
      connection_(Glib::add_exception_handler(sigc::mem_fun(*this, &HandlerErrors::keep))) {}

HandlerErrors::~HandlerErrors() { connection_.disconnect(); }

void HandlerErrors::rethrow() const {
  if (first_) std::rethrow_exception(first_);
}

void HandlerErrors::keep() {
  if (!first_) first_ = std::current_exception();
  thrown_();
}

}  // namespace cardpanels::gtk
