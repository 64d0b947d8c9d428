#include "dialog/Batch.h"

#include <algorithm>
#include <utility>

#include "dialog/JobStateText.h"
#include "host/Error.h"
#include "host/KeptConnection.h"
#include "host/PrintServer.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {

using platform::_;
using platform::filled;
using State = BatchJob::State;

/// Touched on the dialog's thread only.
struct Batch::Listener {
  Batch* batch;
};

/// What came of one job.
struct Batch::Outcome {
  std::size_t job = 0;
  State state = State::waiting;
  int id = 0;
  std::string reason = {};
  std::optional<host::PasswordNeeded> passwordNeeded = {};
  std::optional<host::PPDChanged> ppdChanged = {};
  bool endsAll = false;
};

/// The thread's side.
class Batch::Sender {
 public:
  Sender(std::vector<std::pair<std::size_t, BatchJob>> jobs, platform::Text ppdText,
         bool stopsAtFailure, const std::optional<host::Login>& login)
      : jobs_(std::move(jobs)), ppdText_(std::move(ppdText)), stopsAtFailure_(stopsAtFailure) {
    terms_.login = login;
    terms_.kept = std::make_shared<host::KeptConnection>();
  }

  void run(Abandonment& abandonment, const std::function<void(const Outcome&)>& tell) {
    terms_.abandoned = &abandonment.flag();
    for (auto& [place, job] : jobs_) {
      if (abandonment.flag()) return;
      tell({place, State::sending, job.id});
      const Outcome outcome = attempted(place, job);
      tell(outcome);
      if (outcome.endsAll || (stopsAtFailure_ && outcome.state == State::failed)) return;
    }
  }

 private:
  Outcome attempted(std::size_t place, BatchJob& job) {
    try {
      return {place, State::sent, sent(job)};
    } catch (const host::PasswordNeeded& needed) {
      return {.job = place, .id = job.id, .passwordNeeded = needed, .endsAll = true};
    } catch (const host::PPDChanged& changed) {
      return {.job = place, .id = job.id, .ppdChanged = changed, .endsAll = true};
    } catch (const host::JobLeft& left) {
      return {place, State::failed, left.id(), left.what(), {}, {}, true};
    } catch (const host::ServerError& error) {
      const State state = isAbandoned() ? State::waiting : State::failed;
      return {place, state, job.id, error.what(), {}, {}, true};
    } catch (const host::Error& error) {
      const State state = isAbandoned() ? State::waiting : State::failed;
      return {place, state, job.id, error.what()};
    }
  }

  int sent(BatchJob& job) {
    if (job.id != 0) {
      if (host::isWholeElseCancelled(job.submission, job.id, terms_)) return job.id;
      job.id = 0;
    }
    job.submission.ppdText = ppdText_;
    // The queue is read again now and then, not for each job.
    job.submission.basis = basis_;
    job.submission.basis = basis_ = host::currentBasis(job.submission, terms_);
    return host::submitJob(job.submission, terms_);
  }

  bool isAbandoned() const { return *terms_.abandoned; }

  std::vector<std::pair<std::size_t, BatchJob>> jobs_;
  platform::Text ppdText_;
  bool stopsAtFailure_;
  host::Terms terms_;
  std::optional<host::JobBasis> basis_;
};

Batch::Batch(std::vector<host::Submission> submissions, platform::Text ppdText, Post post,
             std::function<void(std::optional<std::size_t>)> changed)
    : ppdText_(std::move(ppdText)),
      post_(std::move(post)),
      changed_(std::move(changed)),
      listener_(std::make_shared<Listener>(Listener{this})) {
  for (host::Submission& each : submissions) jobs_.push_back({std::move(each)});
}

Batch::~Batch() { listener_->batch = nullptr; }

void Batch::start(bool stopsAtFailure, const std::optional<host::Login>& login) {
  if (isSending()) return;
  passwordNeeded_.reset();
  ppdChanged_.reset();
  std::vector<std::pair<std::size_t, BatchJob>> unsent;
  for (std::size_t i = 0; i < jobs_.size(); ++i) {
    if (jobs_[i].state == State::sent) continue;
    jobs_[i].state = State::waiting;
    jobs_[i].reason.clear();
    unsent.emplace_back(i, jobs_[i]);
  }
  const auto sender = std::make_shared<Sender>(std::move(unsent), ppdText_, stopsAtFailure, login);
  thread_ =
      startServerThread([sender, post = post_, listener = listener_](Abandonment& abandonment) {
        sender->run(abandonment, [&](const Outcome& outcome) {
          post([listener, outcome] {
            if (listener->batch != nullptr) listener->batch->take(outcome);
          });
        });
        post([listener] {
          if (listener->batch != nullptr) listener->batch->ended();
        });
      });
}

void Batch::cancel() {
  isEnding_ = isSending();
  thread_.reset();
}

void Batch::giveUp() {
  if (!isEnding_) return;
  listener_->batch = nullptr;
  listener_ = std::make_shared<Listener>(Listener{this});
  for (BatchJob& each : jobs_) {
    if (each.state == State::sending) each.state = State::waiting;
  }
  ended();
}

void Batch::take(const Outcome& outcome) {
  BatchJob& job = jobs_[outcome.job];
  job.state = outcome.state;
  job.id = outcome.id;
  job.reason = outcome.reason;
  if (outcome.passwordNeeded) passwordNeeded_.emplace(*outcome.passwordNeeded);
  if (outcome.ppdChanged) ppdChanged_.emplace(*outcome.ppdChanged);
  changed_(outcome.job);
}

void Batch::ended() {
  thread_.reset();
  isEnding_ = false;
  changed_(std::nullopt);
}

std::size_t Batch::count(State state) const {
  return static_cast<std::size_t>(std::count_if(
      jobs_.begin(), jobs_.end(), [state](const BatchJob& each) { return each.state == state; }));
}

std::vector<int> Batch::sentIds() const {
  std::vector<int> ids;
  for (const BatchJob& each : jobs_) {
    if (each.state == State::sent) ids.push_back(each.id);
  }
  return ids;
}

std::vector<std::string> Batch::unsentFiles() const {
  std::vector<std::string> files;
  for (const BatchJob& each : jobs_) {
    const auto& of = each.submission.files;
    if (each.state != State::sent) files.insert(files.end(), of.begin(), of.end());
  }
  return files;
}

std::string progressLine(const Batch& batch) {
  std::string line =
      filled(_("{sent} of {all} sent"), {{"sent", std::to_string(batch.count(State::sent))},
                                         {"all", std::to_string(batch.jobs().size())}});
  const std::size_t failed = batch.count(State::failed);
  if (failed != 0)
    line += " · " + filled(_("{failed} failed"), {{"failed", std::to_string(failed)}});
  return line;
}

std::string stateLine(const BatchJob& job, bool isSending,
                      const std::optional<std::optional<host::JobState>>& state) {
  switch (job.state) {
    case State::waiting: return isSending ? _("Waiting") : _("Not sent");
    case State::sending: return _("Sending…");
    case State::failed: return job.reason;
    case State::sent: break;
  }
  if (!state) return _("Sent");
  if (!*state) return _("Not known to the print server any more");
  return jobLine(**state);
}

}  // namespace cardpanels::dialog
