#pragma once

#include <atomic>
#include <chrono>
#include <istream>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "host/PrintServer.h"
#include "host/Terms.h"

namespace cardpanels::host {

/// One thread's talk with the print server, which another thread can end at any time. The
/// operations throw `Error`.
class Talk {
 public:
  explicit Talk(const Terms& terms);
  Talk(const Talk&) = delete;
  Talk& operator=(const Talk&) = delete;

  // For the thread that talks:

  /// Makes this thread's libcups answer with the login when a password is asked for, and never ask
  /// a person; takes the connection that the terms keep. Before anything else.
  void begin();

  /// Leaves the connection to the next question if the terms keep it and nothing is on its way;
  /// closes it otherwise. After everything else.
  void end();

  /// Sends `request` to `path` and answers what comes, whatever its status.
  Ipp ask(const Ipp& request, const std::string& path = "/");

  /// The same with a document after the request, for which there is time as long as the server
  /// takes some of it.
  Ipp send(const Ipp& request, const std::string& path, std::istream& document);

  /// The file `path`; nothing when there is none. Throws `TooLarge` as soon as it has more than
  /// `largest` bytes.
  std::optional<std::string> get(const std::string& path, std::size_t largest);

  class TooLarge : public Error {
   public:
    using Error::Error;
  };

  // For the thread that waits:

  /// Whether time is up. To be asked again and again: that is how it sees what the server takes.
  bool isLate();

  /// Cuts the connection, perhaps the next one too when called again: what the talking thread does
  /// fails at once.
  void cut();

  /// Why time is up: what it waits for.
  std::string lateness() const;

 private:
  using Clock = std::chrono::steady_clock;

  /// What goes out: a file is asked for without `message`.
  struct Request {
    std::string path;
    ipp_t* message = nullptr;
    std::istream* document = nullptr;

    const char* method() const { return message == nullptr ? "GET" : "POST"; }
  };

  void connect();
  void disconnect();
  bool isUsable() const;
  /// Sends `request` until it is neither to be authorized nor to be encrypted first; what else the
  /// answer has is still to be read.
  int answerTo(const Request& request);
  // The status, which may be none that libcups knows.
  int exchangedOverKept(const Request& request);
  int exchanged(const Request& request);
  int sent(const Request& request);
  int sentDocument(std::istream& document);
  void authorize(const Request& request);
  Ipp readAnswer();
  std::string readFile(std::size_t largest);
  void finishReading();
  [[noreturn]] void failAtStatus(int status);
  [[noreturn]] void failAtConnection();
  const char* password();
  void moreTime();
  int untaken();

  const std::chrono::seconds limit_;
  const std::optional<Login> login_;
  const std::shared_ptr<KeptConnection> kept_;
  std::atomic<Clock::time_point> end_;
  std::atomic<bool> isCut_ = false;
  std::atomic<bool> isConnecting_ = false;
  std::atomic<bool> isSending_ = false;
  int cancelled_ = 0;  // libcups' own flag

  // The talking thread's own.
  http_encryption_t encryption_ = HTTP_ENCRYPTION_IF_REQUESTED;
  std::string authorization_;
  int passwordsAsked_ = 0;  // for this request
  bool isSpent_ = false;    // no more requests go over this connection
  bool isKept_ = false;     // the connection is an earlier question's, and not yet asked over
  bool isLost_ = false;     // it was closed without an answer

  /// Held where `http_` comes and goes, and where the connection is cut.
  std::mutex mutex_;
  Http http_;
  int untaken_ = 0;  // the waiting thread's own
};

}  // namespace cardpanels::host
