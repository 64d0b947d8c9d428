#pragma once

#include <glibmm/exception.h>

#include "host/Error.h"

namespace cardpanels::cardprint {

/// What `action` answers. What the toolkit throws, which is no `std::exception`, becomes a
/// `host::Error`.
template <typename Action>
auto withoutToolkitErrors(Action action) {
  try {
    return action();
  } catch (const Glib::Exception& error) {
    throw host::Error(error.what());
  }
}

}  // namespace cardpanels::cardprint
