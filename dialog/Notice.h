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

/// Whether both tell and offer the same, whatever the answers do.
bool lookTheSame(const Notices& a, const Notices& b);

/// The kind of the worst one; information without any.
Notice::Kind worstKind(const Notices& notices);

/// The name of the icon that stands for a kind in every icon theme.
const char* iconName(Notice::Kind kind);

}  // namespace cardpanels::dialog
