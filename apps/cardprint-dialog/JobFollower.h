#pragma once

#include <giomm/dbusproxy.h>
#include <glibmm/main.h>

#include <string>
#include <vector>

#include "dialog/JobNews.h"
#include "dialog/JobWatch.h"

namespace cardpanels::cardprint {

/// The desktop's notifications.
class Notifications {
 public:
  Notifications();

  /// Whether anything on the desktop shows them.
  bool areTaken() const;

  void show(const dialog::News& news) const;

 private:
  Glib::RefPtr<Gio::DBus::Proxy> service_;  // null without a session
};

/// Notifies the user of what becomes of jobs.
class JobFollower {
 public:
  /// `notifications` must outlive it.
  JobFollower(const std::string& queue, const std::vector<int>& ids,
              const Notifications& notifications);
  ~JobFollower();
  JobFollower(const JobFollower&) = delete;
  JobFollower& operator=(const JobFollower&) = delete;

  /// Returns when all jobs have ended, or the server has not answered for long.
  void run() { loop_->run(); }

 private:
  void read(const dialog::JobsRead& read);

  const Notifications& notifications_;
  dialog::JobNews news_;
  Glib::RefPtr<Glib::MainLoop> loop_ = Glib::MainLoop::create();
  sigc::connection patience_;
  dialog::JobWatch watch_;
};

}  // namespace cardpanels::cardprint
