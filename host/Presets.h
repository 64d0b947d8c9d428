#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/Queue.h"

/// The sets of options that are saved for a queue under names: the instances of CUPS, which `lp -d
/// QUEUE/NAME` and other programs know too. Nothing here asks a server; all of it may wait for a
/// disk.
namespace cardpanels::host {

struct Preset {
  std::string name;  // "" for what is saved for the queue itself
  /// Whether it is the administrator's, whom alone it obeys, and not the user's own.
  bool isLocked = false;
  std::vector<Option> options = {};  // the user's over the administrator's
  bool operator==(const Preset&) const = default;
};

/// What is saved for the queue itself, and its presets by name. Throws `Error` when the user's file
/// cannot be read.
std::vector<Preset> presetsOf(const std::string& queue);

/// Why `name` can be no preset's, a sentence; "" when it can.
std::string presetNameFault(const std::string& name);

/// Saves `options` under `name` as the user's own, over what the user has there under the same
/// keywords; everything else stays. Throws `Error`; then all is as it was.
void savePreset(const QueueName& name, const std::vector<Option>& options);

/// Takes the user's own preset away; one of the administrator's under that name shows again. Throws
/// the same.
void deletePreset(const QueueName& name);

}  // namespace cardpanels::host
