#include "dialog/PresetWork.h"

#include <exception>
#include <utility>

#include "dialog/ThreadAnswer.h"

namespace cardpanels::dialog {

PresetsRead doneWithPresets(const PresetTask& task) {
  PresetsRead read;
  try {
    if (task.kind == PresetTask::Kind::save) host::savePreset(task.name, task.options);
    if (task.kind == PresetTask::Kind::remove) host::deletePreset(task.name);
  } catch (const std::exception& error) {
    read.error = error.what();
  }
  try {
    read.presets = host::presetsOf(task.name.queue);
  } catch (const std::exception& error) {
    if (read.error.empty()) read.error = error.what();
  }
  return read;
}

WorkOnPresets workOnPresetsOnThread(Post post) {
  return [post = std::move(post)](const PresetTask& task, std::function<void(PresetsRead)> done) {
    return answerOnThread<PresetsRead>(
        [task](const std::atomic<bool>& /*abandoned*/) { return doneWithPresets(task); },
        std::move(done), post);
  };
}

}  // namespace cardpanels::dialog
