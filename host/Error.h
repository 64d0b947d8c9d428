#pragma once

#include <stdexcept>

namespace cardpanels::host {

/// Something that the user must be told of: the text names the file and line, the option, or the
/// queue that it is about, and needs nothing in front but the program's name.
class Error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace cardpanels::host
