#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dialog/ServerThread.h"
#include "host/JobStates.h"
#include "host/Submission.h"
#include "host/Terms.h"
#include "platform/Text.h"

namespace cardpanels::dialog {

/// One of the jobs of a batch.
struct BatchJob {
  enum class State { waiting, sending, sent, failed };

  host::Submission submission;
  State state = State::waiting;
  int id = 0;               // once it was sent; of a failed one, the job that was left
  std::string reason = {};  // why it failed
};

/// Sends many jobs, one after the other, on a thread of its own: what was sent is never sent again.
/// To be made, used and destroyed on the dialog's thread, which never waits.
class Batch {
 public:
  /// For `submissions`, whose options were chosen on the PPD `ppdText`, which need not stand in
  /// each of them. `changed` is called by `post` for a job that has changed, by its place among
  /// all, and when sending has ended, without one.
  Batch(std::vector<host::Submission> submissions, platform::Text ppdText, Post post,
        std::function<void(std::optional<std::size_t> job)> changed);
  ~Batch();
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;

  /// Begins to send what was not sent. A file that fails is left, and with `stopsAtFailure` all
  /// behind it; a server that is lost, a PPD that has changed and a missing password end it too.
  void start(bool stopsAtFailure, const std::optional<host::Login>& login);

  /// Ends it as soon as can be; the job that is on its way is cancelled.
  void cancel();

  /// Waits no longer for the end after `cancel`: what is on its way is not sent, as long as that
  /// hangs in reading its file.
  void giveUp();

  bool isSending() const { return thread_ != nullptr || isEnding_; }
  const std::vector<BatchJob>& jobs() const { return jobs_; }
  std::size_t count(BatchJob::State state) const;

  /// The numbers of the jobs that were sent.
  std::vector<int> sentIds() const;

  /// The files of those that were not, in order.
  std::vector<std::string> unsentFiles() const;

  /// What ended the last attempt before all was tried.
  const std::optional<host::PasswordNeeded>& passwordNeeded() const { return passwordNeeded_; }
  const std::optional<host::PPDChanged>& ppdChanged() const { return ppdChanged_; }

 private:
  struct Listener;
  struct Outcome;
  class Sender;

  void take(const Outcome& outcome);
  void ended();

  platform::Text ppdText_;
  Post post_;
  std::function<void(std::optional<std::size_t>)> changed_;
  std::vector<BatchJob> jobs_;
  std::shared_ptr<Listener> listener_;
  std::shared_ptr<void> thread_;
  bool isEnding_ = false;  // cancelled, but what is on its way is not yet
  std::optional<host::PasswordNeeded> passwordNeeded_;
  std::optional<host::PPDChanged> ppdChanged_;
};

/// How far sending is, in a line.
std::string progressLine(const Batch& batch);

/// What became of `job` up to now, in a line; `state` is what the server says of it, if it has been
/// asked: nothing inside for a job that it does not know any more.
std::string stateLine(const BatchJob& job, bool isSending,
                      const std::optional<std::optional<host::JobState>>& state);

}  // namespace cardpanels::dialog
