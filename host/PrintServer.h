#pragma once

#include <cups/cups.h>

#include <memory>
#include <string>
#include <vector>

#include "host/Error.h"

/// What is said to and about the print server that libcups' settings name (`CUPS_SERVER` and the
/// rest).
namespace cardpanels::host {

struct HttpCloser {
  void operator()(http_t* http) const { httpClose(http); }
};
using Http = std::unique_ptr<http_t, HttpCloser>;

struct IppDeleter {
  void operator()(ipp_t* message) const { ippDelete(message); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

/// Which server is asked, and as whom, in place of what the user's files and variables set.
struct ServerChoice {
  std::string server;        // with or without a port, or a socket; empty for no other
  std::string user;          // empty for no other
  bool isEncrypted = false;  // whatever the server wants
};

/// Makes `choice` this thread's, and that of the threads that it starts.
void useServer(const ServerChoice& choice);

/// libcups' settings, which are each thread's own.
struct ServerSettings {
  std::string server = cupsServer();
  int port = ippPort();
  std::string user = cupsUser();
  http_encryption_t encryption = cupsEncryption();

  bool operator==(const ServerSettings&) const = default;

  /// Makes them this thread's. What the user's files and variables set stays as it is: that has
  /// parts which nobody can ask for, such as the version to speak.
  void apply() const;
};

/// Has this thread, and those that it starts, use another server as long as this lives.
class OtherServer {
 public:
  explicit OtherServer(const ServerChoice& choice) { useServer(choice); }
  ~OtherServer() { before_.apply(); }
  OtherServer(const OtherServer&) = delete;
  OtherServer& operator=(const OtherServer&) = delete;

 private:
  ServerSettings before_;
};

/// The server and its port, or its socket.
std::string serverName();

/// The server cannot be asked: it is not there, or does not answer as one.
class ServerError : public Error {
 public:
  using Error::Error;
};

/// Throws the `ServerError` that the server cannot be asked.
[[noreturn]] void failAtServer(const std::string& reason);

/// Throws the `Error` that it has no such queue.
[[noreturn]] void failWithoutQueue(const std::string& queue);

/// A request about `queue`, as the user; about no queue in particular when that is empty.
Ipp queueRequest(ipp_op_t operation, const std::string& queue);

/// A request about the job `id` of `queue`, as the user.
Ipp jobRequest(ipp_op_t operation, const std::string& queue, int id);

/// Whether `answer` grants what was asked.
bool isGranted(ipp_t* answer);

/// What the server says of `answer`, on one line.
std::string statusText(ipp_t* answer);

/// A text of an answer, on one line; "" for none.
std::string textOf(ipp_attribute_t* attribute);
std::string textIn(ipp_t* answer, const char* attribute);

/// IPP's keywords for a state, each on one line, without `none`.
std::vector<std::string> reasonsOf(ipp_attribute_t* attribute);
std::vector<std::string> reasonsIn(ipp_t* answer, const char* attribute);

}  // namespace cardpanels::host
