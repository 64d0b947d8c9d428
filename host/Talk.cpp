#include "host/Talk.h"

#include <strings.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include "host/KeptConnection.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr int kExpectMilliseconds = 500;    // for the server to agree to a document
constexpr int kMostTries = 5;               // of one request
constexpr std::size_t kBlock = 1UL << 16U;  // of a document
constexpr std::size_t kLargestAnswer = 1UL << 20U;

/// Reads an answer's bytes up to a limit.
struct AnswerReader {
  http_t* http;
  std::size_t left = kLargestAnswer;
  bool isCutOff = false;

  static ssize_t read(void* self, ipp_uchar_t* bytes, std::size_t length) {
    return static_cast<AnswerReader*>(self)->read(reinterpret_cast<char*>(bytes), length);
  }

 private:
  /// libcups takes fewer bytes than it asks for as the end.
  ssize_t read(char* bytes, std::size_t length) {
    if (length > left) return -1;
    std::size_t count = 0;
    while (count < length) {
      const ssize_t more = httpRead2(http, bytes + count, length - count);
      if (more <= 0) {
        isCutOff = true;
        return -1;
      }
      count += static_cast<std::size_t>(more);
    }
    left -= count;
    return static_cast<ssize_t>(count);
  }
};

/// The whole document, at its start again, when it has no more than a block; nothing otherwise.
std::optional<std::string> smallDocument(std::istream& document) {
  document.clear();
  document.seekg(0);
  std::string block(kBlock + 1, '\0');
  document.read(block.data(), static_cast<std::streamsize>(block.size()));
  block.resize(static_cast<std::size_t>(document.gcount()));
  return block.size() > kBlock ? std::nullopt : std::optional(std::move(block));
}

/// libcups 2.4.10 takes a local socket with no place for one more connection for connected.
bool isConnected(http_t* http) {
  sockaddr_storage peer{};
  socklen_t size = sizeof peer;
  return getpeername(httpGetFd(http), reinterpret_cast<sockaddr*>(&peer), &size) == 0;
}

[[noreturn]] void failAtGarbage() { failAtServer(_("Its answer cannot be understood.")); }

}  // namespace

Talk::Talk(const Terms& terms)
    : limit_(terms.seconds), login_(terms.login), kept_(terms.kept), end_(Clock::now() + limit_) {}

void Talk::begin() {
  encryption_ = cupsEncryption();
  if (login_ && !login_->user.empty()) cupsSetUser(login_->user.c_str());
  cupsSetPasswordCB2(
      [](const char* /*prompt*/, http_t* /*http*/, const char* /*method*/, const char* /*path*/,
         void* talk) { return static_cast<Talk*>(talk)->password(); },
      this);
  if (!kept_) return;
  Http http = kept_->take();
  isKept_ = http != nullptr;
  const std::lock_guard lock(mutex_);
  http_ = std::move(http);
}

void Talk::end() {
  if (kept_ && isUsable() && httpGetState(http_.get()) == HTTP_STATE_WAITING) {
    const std::lock_guard lock(mutex_);
    if (!isCut_) kept_->keep(std::move(http_));
  }
  disconnect();
}

Ipp Talk::ask(const Ipp& request, const std::string& path) {
  const int status = answerTo({path, request.get()});
  if (status != HTTP_STATUS_OK) failAtStatus(status);
  return readAnswer();
}

Ipp Talk::send(const Ipp& request, const std::string& path, std::istream& document) {
  moreTime();
  const int status = answerTo({path, request.get(), &document});
  if (status != HTTP_STATUS_OK) failAtStatus(status);
  return readAnswer();
}

std::optional<std::string> Talk::get(const std::string& path, std::size_t largest) {
  const int status = answerTo({path});
  if (status == HTTP_STATUS_NOT_FOUND) return std::nullopt;
  if (status != HTTP_STATUS_OK) failAtStatus(status);
  return readFile(largest);
}

bool Talk::isLate() {
  const int untaken = this->untaken();
  if (isSending_ && untaken < std::exchange(untaken_, untaken)) moreTime();
  return Clock::now() >= end_.load();
}

void Talk::cut() {
  isCut_ = true;
  std::atomic_ref<int>(cancelled_).store(1);
  const std::lock_guard lock(mutex_);
  if (http_ && httpGetFd(http_.get()) >= 0) shutdown(httpGetFd(http_.get()), SHUT_RDWR);
}

std::string Talk::lateness() const {
  if (isConnecting_) return _("It takes no connection.");
  const std::string seconds = std::to_string(limit_.count());
  return filled(isSending_ ? _("It took nothing more of the job for {seconds} s.")
                           : _("It gave no complete answer within {seconds} s."),
                {{"seconds", seconds}});
}

/// The bytes of what was sent that the server has not taken yet.
int Talk::untaken() {
  const std::lock_guard lock(mutex_);
  int bytes = 0;
  if (!http_ || ioctl(httpGetFd(http_.get()), TIOCOUTQ, &bytes) != 0) return 0;
  return bytes;
}

void Talk::moreTime() { end_ = Clock::now() + limit_; }

/// Each connection has an `http_t` of its own, and libcups never closes one that is in use: another
/// thread may be about to cut it.
void Talk::connect() {
  disconnect();
  isKept_ = false;
  isConnecting_ = true;
  Http http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, encryption_, 1, 0, nullptr));
  if (!http) failAtServer(cupsLastErrorString());
  if (!authorization_.empty()) httpSetAuthString(http.get(), authorization_.c_str(), nullptr);
  {
    const std::lock_guard lock(mutex_);
    http_ = std::move(http);
  }
  const auto left =
      std::chrono::duration_cast<std::chrono::milliseconds>(end_.load() - Clock::now());
  const int milliseconds = std::max(static_cast<int>(left.count()), 1);
  if (httpReconnect2(http_.get(), milliseconds, &cancelled_) != 0 || isCut_ ||
      !isConnected(http_.get())) {
    disconnect();
    failAtServer(lateness());
  }
  isConnecting_ = false;
}

void Talk::disconnect() {
  Http closed;  // outside the lock: that may take a while
  isSpent_ = false;
  const std::lock_guard lock(mutex_);
  closed = std::move(http_);
}

/// A server may close a connection after any answer, with or without a word.
bool Talk::isUsable() const { return http_ && !isSpent_ && httpWait(http_.get(), 0) == 0; }

int Talk::answerTo(const Request& request) {
  passwordsAsked_ = 0;
  for (int tries = 0; tries < kMostTries; ++tries) {
    if (isCut_) failAtServer(lateness());
    if (!isUsable()) connect();
    const int status = isKept_ ? exchangedOverKept(request) : exchanged(request);
    isSpent_ = status >= HTTP_STATUS_BAD_REQUEST ||
               strcasecmp(httpGetField(http_.get(), HTTP_FIELD_CONNECTION), "close") == 0;
    if (status == HTTP_STATUS_UNAUTHORIZED) {
      authorize(request);
    } else if (status == HTTP_STATUS_UPGRADE_REQUIRED && encryption_ < HTTP_ENCRYPTION_REQUIRED) {
      encryption_ = HTTP_ENCRYPTION_REQUIRED;
    } else {
      return status;
    }
    disconnect();
  }
  failAtStatus(HTTP_STATUS_UNAUTHORIZED);
}

/// The server may have closed it just now: then once more over another one. A job that it made all
/// the same has no document, and prints nothing.
int Talk::exchangedOverKept(const Request& request) {
  isKept_ = false;
  try {
    return exchanged(request);
  } catch (const Error&) {
    if (!isLost_ || request.document != nullptr) throw;
  }
  connect();
  return exchanged(request);
}

int Talk::exchanged(const Request& request) {
  isSending_ = request.document != nullptr;
  int status = sent(request);
  while (status == HTTP_STATUS_CONTINUE && !isCut_ &&
         httpGetState(http_.get()) != HTTP_STATE_WAITING) {
    status = httpUpdate(http_.get());
  }
  if (isCut_ || status == HTTP_STATUS_ERROR || status == HTTP_STATUS_CONTINUE) failAtConnection();
  return status;
}

/// Answers `HTTP_STATUS_CONTINUE` unless the server has answered already. What is small goes out at
/// once, and with its length; a server need not take a large document to refuse it.
int Talk::sent(const Request& request) {
  http_t* const http = http_.get();
  httpClearFields(http);
  httpSetField(http, HTTP_FIELD_AUTHORIZATION, httpGetAuthString(http));
  if (request.message == nullptr) {
    if (httpGet(http, request.path.c_str()) != 0) failAtConnection();
    return HTTP_STATUS_CONTINUE;
  }
  httpSetField(http, HTTP_FIELD_CONTENT_TYPE, "application/ipp");
  const auto whole = request.document == nullptr ? "" : smallDocument(*request.document);
  if (whole) {
    httpSetLength(http, ippLength(request.message) + whole->size());
  } else {
    httpSetExpect(http, HTTP_STATUS_CONTINUE);
    httpSetLength(http, 0);  // in chunks
  }
  if (httpPost(http, request.path.c_str()) != 0) failAtConnection();
  if (!whole && httpWait(http, kExpectMilliseconds) != 0) {
    const int status = httpUpdate(http);
    if (status != HTTP_STATUS_CONTINUE) return status;
  }
  if (request.document != nullptr) moreTime();
  ippSetState(request.message, IPP_STATE_IDLE);
  for (ipp_state_t state = IPP_STATE_IDLE; state != IPP_STATE_DATA;) {
    state = ippWrite(http, request.message);
    if (state == IPP_STATE_ERROR) failAtConnection();
  }
  if (!whole) return sentDocument(*request.document);
  if (!whole->empty() && httpWrite2(http, whole->data(), whole->size()) < 0) failAtConnection();
  return HTTP_STATUS_CONTINUE;
}

int Talk::sentDocument(std::istream& document) {
  http_t* const http = http_.get();
  document.clear();
  document.seekg(0);
  std::array<char, kBlock> block{};
  while (document.read(block.data(), block.size()) || document.gcount() > 0) {
    if (httpWait(http, 0) != 0) {
      const int status = httpUpdate(http);
      if (status != HTTP_STATUS_CONTINUE) return status;
    }
    const auto length = static_cast<std::size_t>(document.gcount());
    if (httpWrite2(http, block.data(), length) < 0) failAtConnection();
    moreTime();
  }
  if (httpWrite2(http, "", 0) < 0) failAtConnection();
  return HTTP_STATUS_CONTINUE;
}

void Talk::authorize(const Request& request) {
  const int before = passwordsAsked_;
  if (cupsDoAuthentication(http_.get(), request.method(), request.path.c_str()) == 0) {
    authorization_ = httpGetAuthString(http_.get());
    return;
  }
  if (passwordsAsked_ == before) failAtStatus(HTTP_STATUS_UNAUTHORIZED);
  const bool refused = passwordsAsked_ > 1;
  const std::string user = cupsUser();
  throw PasswordNeeded(
      filled(refused ? _("The print server {server} refuses the password of the user {user}.")
                     : _("The print server {server} needs the password of the user {user}."),
             {{"server", serverName()}, {"user", platform::onOneLine(user)}}),
      serverName(), user, refused);
}

/// A second time means that the first password was wrong.
const char* Talk::password() {
  ++passwordsAsked_;
  return login_ && passwordsAsked_ == 1 ? login_->password.c_str() : nullptr;
}

Ipp Talk::readAnswer() {
  AnswerReader reader{http_.get()};
  Ipp answer(ippNew());
  for (ipp_state_t state = IPP_STATE_IDLE; state != IPP_STATE_DATA;) {
    state = ippReadIO(&reader, AnswerReader::read, 1, nullptr, answer.get());
    if (state != IPP_STATE_ERROR) continue;
    if (isCut_ || reader.isCutOff) failAtConnection();
    failAtGarbage();
  }
  finishReading();
  return answer;
}

std::string Talk::readFile(std::size_t largest) {
  std::string file;
  std::array<char, 1UL << 16U> block{};
  for (;;) {
    const ssize_t count = httpRead2(http_.get(), block.data(), block.size());
    if (count < 0 || isCut_) failAtConnection();
    if (count == 0) break;
    file.append(block.data(), static_cast<std::size_t>(count));
    if (file.size() > largest) {
      disconnect();
      throw TooLarge("");
    }
  }
  if (httpGetState(http_.get()) != HTTP_STATE_WAITING) failAtConnection();
  return file;
}

/// What comes behind an answer is nobody's business.
void Talk::finishReading() {
  std::array<char, 64> rest{};
  isSpent_ = isSpent_ || (httpGetState(http_.get()) != HTTP_STATE_WAITING &&
                          httpRead2(http_.get(), rest.data(), rest.size()) != 0);
}

void Talk::failAtStatus(int status) {
  const std::string location =
      http_ ? httpGetField(http_.get(), HTTP_FIELD_LOCATION) : std::string();
  disconnect();
  const bool isRedirect = status >= HTTP_STATUS_MULTIPLE_CHOICES &&
                          status < HTTP_STATUS_BAD_REQUEST && !location.empty();
  if (isRedirect) failAtServer(filled(_("It refers to {address}."), {{"address", location}}));
  failAtServer(std::to_string(status) + " " + httpStatus(static_cast<http_status_t>(status)));
}

void Talk::failAtConnection() {
  const int number = http_ ? httpError(http_.get()) : 0;
  disconnect();
  if (isCut_) failAtServer(lateness());
  if (number == EINVAL) failAtGarbage();
  isLost_ = number == 0 || number == EPIPE || number == ECONNRESET;
  failAtServer(isLost_ ? std::string(_("It closed the connection in the middle."))
                       : std::generic_category().message(number));
}

}  // namespace cardpanels::host
