#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/JobOptions.h"
#include "platform/Text.h"

namespace cardpanels::dialog {

/// What the captions in a panel follow.
struct Captions {
  /// Answers the title of an option by its keyword, nothing where there is none.
  std::function<platform::Text(const std::string& key)> title;
  /// Captions with mnemonics that show beside the panel.
  std::vector<std::string> besides;
};

/// Captions by the titles in the PPD of `job`, which must live as long as panels load. `buttons`
/// are the dialog's own.
Captions captionsOf(const host::JobOptions& job, std::vector<std::string> buttons);

/// What a control is called for which a user-interface file says `name`: `title-KEY` is the title
/// of that option, and `title-KEY-X`, `-Y`, `-Width` and `-Height` a measurement of an area.
/// Nothing for another name, or where there is no title.
platform::Text titleByName(const Captions& captions, std::string_view name);

/// The option whose caption is the label that a user-interface file names so; nothing for a label
/// that is no option's caption.
platform::Text optionOfCaption(std::string_view name);

}  // namespace cardpanels::dialog
