#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <utility>

#include "dialog/ServerThread.h"

namespace cardpanels::dialog {

/// Has a thread of its own do `work`, which throws nothing, and `done` take its answer later on the
/// dialog's thread, by `post`; not any more once what this answers is destroyed. The work goes on
/// to its end, unless it heeds what it is given.
template <typename Answer>
std::shared_ptr<void> answeredByThread(
    const Post& post, std::function<Answer(const std::atomic<bool>& abandoned)> work,
    std::function<void(Answer)> done) {
  struct Errand {
    std::function<void(Answer)> done;  // the main loop's
    Answer answer;                     // the thread's, then the main loop's
  };
  auto errand = std::make_shared<Errand>();
  errand->done = std::move(done);
  auto thread = startServerThread([errand, work = std::move(work), post](Abandonment& abandonment) {
    errand->answer = work(abandonment.flag());
    if (abandonment.flag()) return;
    post([errand] {
      if (errand->done) std::exchange(errand->done, nullptr)(std::move(errand->answer));
    });
  });
  return {errand.get(), [errand, thread](Errand* each) { each->done = nullptr; }};
}

}  // namespace cardpanels::dialog
