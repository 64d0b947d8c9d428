#include "tests/support/OddServer.h"

#include <arpa/inet.h>
#include <cups/cups.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace cardpanels::test {
namespace {

constexpr std::size_t kBlock = 1UL << 16U;
constexpr int kMostWaiting = 8;
constexpr const char* kHeadEnd = "\r\n\r\n";

int listeningSocket(const std::string& path) {
  const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un name{};
  name.sun_family = AF_UNIX;
  std::strncpy(name.sun_path, path.c_str(), sizeof(name.sun_path) - 1);
  if (bind(listener, reinterpret_cast<const sockaddr*>(&name), sizeof(name)) != 0 ||
      listen(listener, kMostWaiting) != 0) {
    throw std::runtime_error(std::strerror(errno));
  }
  return listener;
}

int listeningPort(int& port) {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in name{};
  name.sin_family = AF_INET;
  name.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof(name);
  if (bind(listener, reinterpret_cast<const sockaddr*>(&name), length) != 0 ||
      listen(listener, kMostWaiting) != 0 ||
      getsockname(listener, reinterpret_cast<sockaddr*>(&name), &length) != 0) {
    throw std::runtime_error(std::strerror(errno));
  }
  port = ntohs(name.sin_port);
  return listener;
}

ssize_t append(void* text, ipp_uchar_t* bytes, std::size_t length) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), length);
  return static_cast<ssize_t>(length);
}

std::string encoded(ipp_t* message) {
  std::string bytes;
  while (ippWriteIO(&bytes, append, 1, nullptr, message) != IPP_STATE_DATA) {
  }
  return bytes;
}

using Ipp = std::unique_ptr<ipp_t, decltype(&ippDelete)>;

Ipp newAnswer(int status, const std::string& message) {
  Ipp answer(ippNew(), ippDelete);
  ippSetVersion(answer.get(), 2, 0);
  ippSetStatusCode(answer.get(), static_cast<ipp_status_t>(status));
  ippSetRequestId(answer.get(), 1);
  ippAddString(answer.get(), IPP_TAG_OPERATION, IPP_TAG_CHARSET, "attributes-charset", nullptr,
               "utf-8");
  ippAddString(answer.get(), IPP_TAG_OPERATION, IPP_TAG_LANGUAGE, "attributes-natural-language",
               nullptr, "en");
  ippAddString(answer.get(), IPP_TAG_OPERATION, IPP_TAG_TEXT, "status-message", nullptr,
               message.c_str());
  return answer;
}

}  // namespace

bool OddServer::Client::readMore() {
  const std::string more = some(kBlock);
  read_ += more;
  return !more.empty();
}

bool OddServer::Client::readUntil(std::size_t size) {
  while (read_.size() < size) {
    if (!readMore()) return false;
  }
  return true;
}

std::string OddServer::Client::request() {
  std::size_t end = std::string::npos;
  while ((end = read_.find(kHeadEnd)) == std::string::npos) {
    if (!readMore()) return "";
  }
  end += std::strlen(kHeadEnd);
  const std::string head = read_.substr(0, end);
  constexpr const char* kLength = "Content-Length: ";
  const std::size_t length = head.find(kLength);
  if (length != std::string::npos) {
    end += std::stoul(head.substr(length + std::strlen(kLength)));
    if (!readUntil(end)) return "";
  } else if (head.find("chunked") != std::string::npos) {
    if (head.find("100-continue") != std::string::npos) send("HTTP/1.1 100 Continue\r\n\r\n");
    constexpr const char* kLastChunk = "\r\n0\r\n\r\n";
    while (read_.find(kLastChunk, end) == std::string::npos) {
      if (!readMore()) return "";
    }
    end = read_.find(kLastChunk, end) + std::strlen(kLastChunk);
  }
  std::string request = read_.substr(0, end);
  read_.erase(0, end);
  return request;
}

std::string OddServer::Client::some(std::size_t most) {
  std::string bytes(most, '\0');
  bytes.resize(
      static_cast<std::size_t>(std::max<ssize_t>(recv(socket_, bytes.data(), bytes.size(), 0), 0)));
  return bytes;
}

bool OddServer::Client::send(const std::string& bytes) const {
  for (std::size_t sent = 0; sent < bytes.size();) {
    const ssize_t count = ::send(socket_, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
    if (count <= 0) return false;
    sent += static_cast<std::size_t>(count);
  }
  return true;
}

void OddServer::Client::beSilent() {
  while (readMore()) {
  }
}

void OddServer::Client::close() const { shutdown(socket_, SHUT_RDWR); }

OddServer::OddServer(std::function<void(Client&)> serve, At at) : serve_(std::move(serve)) {
  if (at == At::socket) {
    name_ = (folder_.path() / "odd.sock").string();
    listener_ = listeningSocket(name_);
  } else {
    int port = 0;
    listener_ = listeningPort(port);
    name_ = "127.0.0.1:" + std::to_string(port);
  }
  const char* const before = std::getenv("CUPS_SERVER");
  variableBefore_ = before == nullptr ? "" : before;
  setenv("CUPS_SERVER", name_.c_str(), 1);
  cupsSetServer(name_.c_str());
  if (serve_) {
    acceptor_ = std::thread([this] { accept(); });
  } else {
    fillUp();
  }
}

OddServer::~OddServer() {
  shutdown(listener_, SHUT_RDWR);
  if (acceptor_.joinable()) acceptor_.join();
  {
    const std::lock_guard lock(mutex_);
    for (const int each : sockets_) shutdown(each, SHUT_RDWR);
  }
  for (std::thread& each : threads_) each.join();
  for (const int each : sockets_) ::close(each);
  ::close(listener_);
  if (variableBefore_.empty()) {
    unsetenv("CUPS_SERVER");
  } else {
    setenv("CUPS_SERVER", variableBefore_.c_str(), 1);
  }
  cupsSetServer(variableBefore_.empty() ? nullptr : variableBefore_.c_str());
}

void OddServer::fillUp() {
  sockaddr_storage name{};
  socklen_t length = sizeof(name);
  auto* const address = reinterpret_cast<sockaddr*>(&name);
  if (getsockname(listener_, address, &length) != 0) throw std::runtime_error("no name");
  for (int i = 0; i < 2 * kMostWaiting; ++i) {
    sockets_.push_back(socket(name.ss_family, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    static_cast<void>(connect(sockets_.back(), address, length));  // fails in the end
  }
}

void OddServer::accept() {
  for (;;) {
    const int socket = accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
    if (socket < 0) return;
    const std::lock_guard lock(mutex_);
    sockets_.push_back(socket);
    threads_.emplace_back([this, socket] {
      Client client(socket);
      serve_(client);
      client.close();
    });
  }
}

std::string httpAnswer(const std::string& body, const std::string& type) {
  return "HTTP/1.1 200 OK\r\nContent-Type: " + type +
         "\r\nContent-Length: " + std::to_string(body.size()) + kHeadEnd + body;
}

std::string queueAnswer(int status, const std::string& message, const std::string& queue,
                        const std::string& member) {
  const Ipp answer = newAnswer(status, message);
  ippAddString(answer.get(), IPP_TAG_PRINTER, IPP_TAG_NAME, "printer-name", nullptr, queue.c_str());
  if (!member.empty()) {
    ippAddString(answer.get(), IPP_TAG_PRINTER, IPP_TAG_NAME, "member-names", nullptr,
                 member.c_str());
  }
  return httpAnswer(encoded(answer.get()));
}

std::string jobAnswer(int id) {
  const Ipp answer = newAnswer(0, "ok");
  ippAddInteger(answer.get(), IPP_TAG_JOB, IPP_TAG_INTEGER, "job-id", id);
  return httpAnswer(encoded(answer.get()));
}

bool asksFor(const std::string& request, int operation) {
  // The version, the operation, and the request's number.
  const std::array<char, 6> start{2, 0, 0, static_cast<char>(operation), 0, 0};
  const std::size_t body = request.find(kHeadEnd);
  return body != std::string::npos &&
         request.find(std::string(start.data(), start.size()), body) != std::string::npos;
}

}  // namespace cardpanels::test
