#pragma once

#include <string>

#include "apps/pde-drive/Script.h"
#include "platform/PrintPanel.h"

namespace cardpanels::drive {

/// Whether a script calls a panel by this word.
bool isPanelName(const std::string& word);

/// What a script calls the panel of that class: a class that is not known goes by its own name.
std::string panelNameOf(std::string_view className);

/// Carries `operation` out on `panel` and answers its result: an operation of the contract by its
/// C++ name, `pick`, `type` or `state` on a control, or an action by its name without the colon.
/// Throws `CommandError` when that is none, or its arguments do not fit.
std::string performOperation(platform::PrintPanel& panel, const std::string& operation,
                             const Words& arguments);

}  // namespace cardpanels::drive
