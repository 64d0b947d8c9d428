#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "dialog/ServerThread.h"
#include "host/Presets.h"

namespace cardpanels::dialog {

/// Something to be done with the presets of a queue.
struct PresetTask {
  enum class Kind { read, save, remove };

  Kind kind = Kind::read;
  host::QueueName name;                    // its instance is the preset
  std::vector<host::Option> options = {};  // to save
};

/// What came of it.
struct PresetsRead {
  std::vector<host::Preset> presets = {};  // as they are since, that of no name first
  std::string error = {};                  // why it could not be done; "" else
};

/// Begins `task`, and calls back once, later and on the caller's thread, unless what it answers was
/// destroyed before. What has begun is done even then.
using WorkOnPresets = std::function<std::shared_ptr<void>(const PresetTask& task,
                                                          std::function<void(PresetsRead)> done)>;

/// Does `task` at once; waits for the disk.
PresetsRead doneWithPresets(const PresetTask& task);

/// A `WorkOnPresets` by threads of its own, which calls back by `post`.
WorkOnPresets workOnPresetsOnThread(Post post);

}  // namespace cardpanels::dialog
