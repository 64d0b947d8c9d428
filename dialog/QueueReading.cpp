#include "dialog/QueueReading.h"

#include <exception>
#include <utility>

#include "dialog/ThreadAnswer.h"
#include "host/Queue.h"

namespace cardpanels::dialog {
namespace {

QueueRead read(const std::string& queue, const std::atomic<bool>& abandoned) {
  try {
    auto found = host::openQueue({queue, ""}, {.abandoned = &abandoned});
    return {std::move(found.ppd),          {},
            std::move(found.savedOptions), std::move(found.serverOptions),
            std::move(found.differences),  found.isElsewhere};
  } catch (const std::exception& error) {
    return {nullptr, error.what()};
  }
}

}  // namespace

ReadQueue readQueueOnThread(Post post) {
  return [post = std::move(post)](const std::string& queue, std::function<void(QueueRead)> done) {
    return answerOnThread<QueueRead>(
        [queue](const std::atomic<bool>& abandoned) { return read(queue, abandoned); },
        std::move(done), post);
  };
}

}  // namespace cardpanels::dialog
