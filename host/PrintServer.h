#pragma once

#include <cups/cups.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>

/// Asking the print server that libcups' settings name (`CUPS_SERVER` and the rest).
namespace cardpanels::host {

struct HttpCloser {
  void operator()(http_t* http) const { httpClose(http); }
};
using Http = std::unique_ptr<http_t, HttpCloser>;

struct IppDeleter {
  void operator()(ipp_t* message) const { ippDelete(message); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

/// How long a thread waits for the server that somebody may stop waiting for.
struct Waiting {
  std::chrono::steady_clock::time_point end;
  const std::atomic<bool>& abandoned;
};

/// A connection that gives up on a server that is silent for `seconds`. Throws `Error`.
Http connected(int seconds);

/// One that gives up after `seconds` of being connected, or soon after `waiting` has ended, which
/// must outlive it.
Http connected(int seconds, Waiting& waiting);

/// Throws the `Error` that the server cannot be asked.
[[noreturn]] void failAtServer(const std::string& reason);

/// Throws the `Error` that it has no such queue.
[[noreturn]] void failWithoutQueue(const std::string& queue);

/// A request about `queue`, as the user; about no queue in particular when that is empty.
Ipp queueRequest(ipp_op_t operation, const std::string& queue);

/// Sends `request` to `path` and answers what came, perhaps nothing; `cupsLastError` tells how it
/// went.
Ipp answered(http_t* http, Ipp request, const std::string& path = "/");

}  // namespace cardpanels::host
