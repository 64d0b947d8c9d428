#include "dialog/JobWatch.h"

#include <algorithm>
#include <utility>

#include "host/Error.h"
#include "host/KeptConnection.h"

namespace cardpanels::dialog {

/// Touched on the dialog's thread only.
struct JobWatch::Listener {
  std::function<void(const JobsRead&)> changed;
};

namespace {

bool hasEnded(const std::optional<host::JobState>& job) { return !job || job->hasEnded(); }

/// Asks for what can still change in `read`, and puts that in.
void refresh(JobsRead& read, const std::string& queue, const host::Terms& terms) {
  std::vector<int> ids;
  for (const auto& [id, job] : read.jobs) {
    if (!hasEnded(job)) ids.push_back(id);
  }
  try {
    auto progress = host::jobsProgress(queue, ids, terms);
    for (auto& [id, job] : progress.jobs) read.jobs[id] = std::move(job);
    read.printer = std::move(progress.printer);
    read.error.clear();
  } catch (const host::Error& error) {
    read.error = error.what();
  }
}

}  // namespace

bool JobsRead::haveAllEnded() const {
  return std::all_of(jobs.begin(), jobs.end(),
                     [](const auto& each) { return hasEnded(each.second); });
}

JobWatch::JobWatch(const std::string& queue, std::vector<int> ids, Post post,
                   std::function<void(const JobsRead&)> changed, std::chrono::milliseconds interval)
    : listener_(std::make_shared<Listener>(Listener{std::move(changed)})) {
  const auto watch = [queue, ids = std::move(ids), post = std::move(post), listener = listener_,
                      interval](Abandonment& abandonment) {
    const host::Terms terms{.abandoned = &abandonment.flag(),
                            .kept = std::make_shared<host::KeptConnection>()};
    JobsRead now;
    for (const int id : ids) now.jobs[id] = host::JobState{};
    std::optional<JobsRead> last;
    do {
      refresh(now, queue, terms);
      if (abandonment.flag() || now == last) continue;
      last = now;
      post([listener, now] {
        const auto told = listener->changed;  // which may end the watch
        if (told) told(now);
      });
    } while (!now.haveAllEnded() && !abandonment.wait(interval));
  };
  thread_ = startServerThread(watch);
}

JobWatch::~JobWatch() { listener_->changed = nullptr; }

}  // namespace cardpanels::dialog
