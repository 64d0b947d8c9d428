#pragma once

#include <string>

#include "host/Error.h"

namespace cardpanels::host {

/// What `action` throws.
template <typename Action>
std::string errorOf(Action action) {
  try {
    action();
  } catch (const Error& error) {
    return error.what();
  }
  return "no error";
}

}  // namespace cardpanels::host
