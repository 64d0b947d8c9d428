#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace cardpanels::test {

/// A print server that does whatever a test has it do: on a socket of its own, or on a port of this
/// machine's. Ended with this. While it lives, libcups and the programs that the test starts use
/// it.
class OddServer {
 public:
  /// A client's connection, for the thread that serves it.
  class Client {
   public:
    explicit Client(int socket) : socket_(socket) {}

    /// The next request with its body, "" when there is none any more.
    std::string request();

    /// Up to `most` bytes of what comes, "" at its end.
    std::string some(std::size_t most);

    /// False when nobody takes it any more.
    bool send(const std::string& bytes) const;

    /// Does nothing until the client or the test ends.
    void beSilent();

    void close() const;

   private:
    bool readMore();
    bool readUntil(std::size_t size);

    int socket_;
    std::string read_;
  };

  enum class At { socket, port };

  /// Has `serve` run for each connection, on a thread of its own. Without `serve` it accepts none,
  /// and there is no more room for those that wait.
  explicit OddServer(std::function<void(Client&)> serve, At at = At::socket);
  ~OddServer();
  OddServer(const OddServer&) = delete;
  OddServer& operator=(const OddServer&) = delete;

  /// As messages name it.
  const std::string& name() const { return name_; }

 private:
  void accept();
  void fillUp();

  std::function<void(Client&)> serve_;
  TemporaryFolder folder_;
  std::string name_;
  std::string variableBefore_;
  int listener_ = -1;
  std::mutex mutex_;
  std::vector<int> sockets_;
  std::list<std::thread> threads_;
  std::thread acceptor_;
};

/// An HTTP answer with `body`; its length in the header may be another one.
std::string httpAnswer(const std::string& body, const std::string& type = "application/ipp");

/// An IPP answer with that status and the attributes of a queue, or of a class with that member, in
/// HTTP.
std::string queueAnswer(int status = 0, const std::string& message = "ok",
                        const std::string& queue = "card", const std::string& member = "");

/// An IPP answer to Create-Job, in HTTP.
std::string jobAnswer(int id);

/// Whether `request` asks for that IPP operation.
bool asksFor(const std::string& request, int operation);

}  // namespace cardpanels::test
