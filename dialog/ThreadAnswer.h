#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include "dialog/ServerThread.h"

namespace cardpanels::dialog {

/// Has `work` answer on a thread of its own, and hands that to `done` by `post`, unless what this
/// answers has been dropped by then: that abandons the thread, and waits for nothing. `work` throws
/// nothing.
template <typename Answer>
std::shared_ptr<void> answerOnThread(std::function<Answer(const std::atomic<bool>& abandoned)> work,
                                     std::function<void(Answer answer)> done, Post post) {
  struct Errand {
    std::function<void(Answer)> done;  // the main loop's
    std::optional<Answer> answer;      // the thread's, then the main loop's
  };
  auto errand = std::make_shared<Errand>(Errand{std::move(done), {}});
  auto thread = startServerThread(
      [work = std::move(work), errand, post = std::move(post)](Abandonment& abandonment) {
        errand->answer.emplace(work(abandonment.flag()));
        if (abandonment.flag()) return;
        post([errand] {
          if (errand->done) std::exchange(errand->done, nullptr)(std::move(*errand->answer));
        });
      });
  return {errand.get(), [errand, thread](Errand* each) { each->done = nullptr; }};
}

}  // namespace cardpanels::dialog
