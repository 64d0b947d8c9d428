#include "dialog/QueueReading.h"

#include <atomic>
#include <exception>
#include <utility>

#include "host/Queue.h"

namespace cardpanels::dialog {
namespace {

/// What the thread and the main loop share.
struct Reading {
  std::function<void(QueueRead)> done;  // the main loop's
  QueueRead read;                       // the thread's, then the main loop's
};

QueueRead read(const std::string& queue, const std::atomic<bool>& abandoned) {
  try {
    auto found = host::openQueue({queue, ""}, {.abandoned = &abandoned});
    return {std::move(found.ppd), {}, std::move(found.savedOptions), std::move(found.differences)};
  } catch (const std::exception& error) {
    return {nullptr, error.what()};
  }
}

/// The answer to the dialog, which calls back no more once it is dropped.
std::shared_ptr<void> start(const std::string& queue, std::function<void(QueueRead)> done,
                            const Post& post) {
  auto reading = std::make_shared<Reading>();
  reading->done = std::move(done);
  auto thread = startServerThread([queue, reading, post](Abandonment& abandonment) {
    reading->read = read(queue, abandonment.flag());
    if (abandonment.flag()) return;
    post([reading] {
      if (reading->done) std::exchange(reading->done, nullptr)(std::move(reading->read));
    });
  });
  return {reading.get(), [reading, thread](Reading* each) { each->done = nullptr; }};
}

}  // namespace

ReadQueue readQueueOnThread(Post post) {
  return [post = std::move(post)](const std::string& queue, std::function<void(QueueRead)> done) {
    return start(queue, std::move(done), post);
  };
}

}  // namespace cardpanels::dialog
