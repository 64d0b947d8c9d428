#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dialog/ServerThread.h"
#include "host/JobStates.h"

namespace cardpanels::dialog {

/// What is known of several jobs at one time.
struct JobsRead {
  /// By number; nothing for a job that the server does not know any more.
  std::map<int, std::optional<host::JobState>> jobs = {};
  host::PrinterState printer = {};
  std::string error = {};  // why nothing more is known just now; "" else
  bool operator==(const JobsRead&) const = default;

  /// Whether nothing comes of any of them any more.
  bool haveAllEnded() const;
};

/// Reads the states of jobs again and again, on a thread of its own, until all have ended or this
/// does. To be made, used and destroyed on the dialog's thread, which never waits.
class JobWatch {
 public:
  /// Calls `changed` by `post` with the first states, and whenever they are others.
  JobWatch(const std::string& queue, std::vector<int> ids, Post post,
           std::function<void(const JobsRead&)> changed,
           std::chrono::milliseconds interval = std::chrono::seconds(3));
  ~JobWatch();
  JobWatch(const JobWatch&) = delete;
  JobWatch& operator=(const JobWatch&) = delete;

 private:
  struct Listener;

  std::shared_ptr<Listener> listener_;
  std::shared_ptr<void> thread_;
};

}  // namespace cardpanels::dialog
