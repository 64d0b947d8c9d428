#pragma once

#include <optional>
#include <string>

#include "dialog/JobWatch.h"

namespace cardpanels::dialog {

/// What a notification says.
struct News {
  std::string title;
  std::string text;
  bool operator==(const News&) const = default;
};

/// What a user who has closed the window wants to know of jobs of a queue.
class JobNews {
 public:
  explicit JobNews(std::string queue) : queue_(std::move(queue)) {}

  /// Takes what was read next, and answers what is new to the user: that the printer has stopped,
  /// each time, and in the end what became of the jobs.
  std::optional<News> next(const JobsRead& read);

 private:
  std::string queue_;
  bool isStopped_ = false;
};

}  // namespace cardpanels::dialog
