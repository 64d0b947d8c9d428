#pragma once

#include <mutex>
#include <utility>

#include "host/PrintServer.h"

namespace cardpanels::host {

/// A connection to the print server that one question leaves to the next. On any thread.
class KeptConnection {
 public:
  /// The connection, from now on the caller's; null when there is none.
  Http take() {
    const std::lock_guard lock(mutex_);
    return std::move(http_);
  }

  /// Keeps `http`, over which nothing is on its way, in place of an earlier one.
  void keep(Http http) {
    const std::lock_guard lock(mutex_);
    http_.swap(http);
  }

 private:
  std::mutex mutex_;
  Http http_;
};

}  // namespace cardpanels::host
