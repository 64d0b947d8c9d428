#pragma once

#include <optional>
#include <string>
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

/// Adds `options` to what the user has saved under `name`, in place of earlier ones, and takes
/// those of the names `dropped` out; everything else stays byte by byte. Waits for others that do
/// so. Throws `std::system_error`; then all is as it was.
void saveUnder(const QueueName& name, const std::vector<Option>& options,
               const std::vector<std::string>& dropped = {});

/// Takes what the user has saved under `name` away. An instance that is their default hands that on
/// to its queue. Throws the same.
void forgetUnder(const QueueName& name);

}  // namespace cardpanels::host
