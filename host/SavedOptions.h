#pragma once

#include <optional>
#include <vector>

#include "host/JobOption.h"
#include "host/Queue.h"

/// What the user and the administrator have set for print queues, as `lpoptions` keeps it. Nothing
/// here asks a server.
namespace cardpanels::host {

/// The queue that the user has made their default, by a variable or by `lpoptions`; the
/// administrator's otherwise. Empty for none.
QueueName userDefault();

/// The options that are saved under `name`, the user's over the administrator's. Nothing when there
/// is no such entry.
std::optional<OptionList> savedUnder(const QueueName& name);

/// Adds `options` to what the user has saved under `name`, in place of earlier ones; everything
/// else stays as it is. Throws `std::system_error`.
void saveUnder(const QueueName& name, const std::vector<Option>& options);

}  // namespace cardpanels::host
