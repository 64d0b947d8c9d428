#pragma once

#include <functional>
#include <string>
#include <vector>

namespace cardpanels::dialog {

/// One thing that the bar above a page's sections tells.
struct Notice {
  enum class Kind { information, warning, error };

  /// What the user can do about it.
  struct Answer {
    std::string label;  // with an underscore before its mnemonic
    std::function<void()> perform;
  };

  Kind kind = Kind::warning;
  std::string text;
  std::vector<Answer> answers;
};

using Notices = std::vector<Notice>;

}  // namespace cardpanels::dialog
