#include "dialog/StateWatch.h"

#include <exception>
#include <optional>
#include <utility>

namespace cardpanels::dialog {

/// Touched on the dialog's thread only.
struct StateWatch::Listener {
  std::function<void(const StateRead&)> changed;
};

namespace {

StateRead stateOf(const std::string& queue, const std::atomic<bool>& abandoned) {
  try {
    return {host::printerState(queue, {.abandoned = &abandoned})};
  } catch (const std::exception& error) {
    return {{}, error.what()};
  }
}

}  // namespace

StateWatch::StateWatch(const std::string& queue, Post post,
                       std::function<void(const StateRead&)> changed,
                       std::chrono::milliseconds interval)
    : listener_(std::make_shared<Listener>(Listener{std::move(changed)})) {
  const auto watch = [queue, post = std::move(post), listener = listener_,
                      interval](Abandonment& abandonment) {
    std::optional<StateRead> last;
    do {
      const StateRead now = stateOf(queue, abandonment.flag());
      if (abandonment.flag() || now == last) continue;
      last = now;
      post([listener, now] {
        const auto told = listener->changed;  // which may end the watch
        if (told) told(now);
      });
    } while (!abandonment.wait(interval));
  };
  thread_ = startServerThread(watch);
}

StateWatch::~StateWatch() { listener_->changed = nullptr; }

WatchState watchStateOnThread(Post post) {
  return [post = std::move(post)](const std::string& queue,
                                  std::function<void(const StateRead&)> changed) {
    return std::make_shared<StateWatch>(queue, post, std::move(changed));
  };
}

}  // namespace cardpanels::dialog
