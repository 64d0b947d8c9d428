#pragma once

#include <functional>

namespace cardpanels::test {

/// Handles what has happened to the widgets.
void handleEvents();

/// Handles events until `condition` holds. Answers whether it did within ten seconds.
bool handleEventsUntil(const std::function<bool()>& condition);

}  // namespace cardpanels::test
