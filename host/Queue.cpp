#include "host/Queue.h"

#include <cups/cups.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <system_error>

#include "host/Error.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

struct HttpCloser {
  void operator()(http_t* http) const { httpClose(http); }
};
using Http = std::unique_ptr<http_t, HttpCloser>;

struct DestFreer {
  void operator()(cups_dest_t* dest) const { cupsFreeDests(1, dest); }
};
using Dest = std::unique_ptr<cups_dest_t, DestFreer>;

/// All queues and their instances; libcups moves the list when one is added.
struct Dests {
  Dests() = default;
  Dests(const Dests&) = delete;
  Dests& operator=(const Dests&) = delete;
  ~Dests() { cupsFreeDests(count, list); }
  int count = 0;
  cups_dest_t* list = nullptr;
};

/// A file that goes away with this.
class TemporaryFile {
 public:
  explicit TemporaryFile(std::string path) : path_(std::move(path)) {}
  ~TemporaryFile() {
    if (!path_.empty()) unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

int giveUp(http_t* /*http*/, void* /*data*/) { return 0; }

/// How long a thread waits for the server; asked whenever `kInterval` has passed in vain.
struct Waiting {
  static constexpr double kInterval = 0.1;  // seconds

  std::chrono::steady_clock::time_point end;
  const std::atomic<bool>& abandoned;

  static int goesOn(http_t* /*http*/, void* data) {
    const auto& waiting = *static_cast<const Waiting*>(data);
    return !waiting.abandoned && std::chrono::steady_clock::now() < waiting.end ? 1 : 0;
  }
};

[[noreturn]] void failAtServer(const std::string& reason) {
  throw Error(filled(_("The print server {server} cannot be asked: {reason}"),
                     {{"server", cupsServer()}, {"reason", reason}}));
}

Http connected(int seconds) {
  Http http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                         seconds * 1000, nullptr));
  if (!http) failAtServer(cupsLastErrorString());
  httpSetTimeout(http.get(), seconds, giveUp, nullptr);
  return http;
}

const char* orNull(const std::string& text) { return text.empty() ? nullptr : text.c_str(); }

void addQueueURI(ipp_t* request, const std::string& queue) {
  std::array<char, HTTP_MAX_URI> uri{};
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), uri.size(), "ipp", nullptr, "localhost",
                   ippPort(), "/printers/%s", queue.c_str());
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
}

void addUser(ipp_t* request) {
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
}

/// Asks for `queue`, or for the server's default when it is empty. libcups' own search goes on to
/// look for printers on the network, without a time limit.
ipp_status_t asked(http_t* http, const std::string& queue) {
  ipp_t* const request =
      ippNewRequest(queue.empty() ? IPP_OP_CUPS_GET_DEFAULT : IPP_OP_GET_PRINTER_ATTRIBUTES);
  if (!queue.empty()) addQueueURI(request, queue);
  addUser(request);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
               "printer-name");
  ippDelete(cupsDoRequest(http, request, "/"));
  return cupsLastError();
}

void checkQueue(http_t* http, const std::string& queue) {
  const ipp_status_t status = asked(http, queue);
  if (status <= IPP_STATUS_OK_CONFLICTING) return;
  if (status != IPP_STATUS_ERROR_NOT_FOUND) failAtServer(cupsLastErrorString());
  if (queue.empty()) return;  // the user's settings may still name a default
  throw Error(filled(_("The print server {server} has no queue {queue}."),
                     {{"server", cupsServer()}, {"queue", platform::onOneLine(queue)}}));
}

/// libcups takes an instance that nobody has saved for one without options.
void checkInstance(http_t* http, const QueueName& name) {
  if (name.instance.empty()) return;
  Dests all;
  all.count = cupsGetDests2(http, &all.list);
  if (cupsGetDest(orNull(name.queue), name.instance.c_str(), all.count, all.list) != nullptr)
    return;
  throw Error(filled(_("The queue {queue} has no instance {instance}."),
                     {{"queue", name.queue}, {"instance", platform::onOneLine(name.instance)}}));
}

Dest destOf(http_t* http, const QueueName& name) {
  checkQueue(http, name.queue);
  checkInstance(http, name);
  Dest dest(cupsGetNamedDest(http, orNull(name.queue), orNull(name.instance)));
  if (dest) return dest;
  if (name.queue.empty()) throw Error(_("There is no default queue; name one."));
  failAtServer(cupsLastErrorString());
}

QueueName nameOf(const cups_dest_t& dest) {
  return {dest.name, dest.instance == nullptr ? "" : dest.instance};
}

std::span<const cups_option_t> optionsOf(const cups_dest_t& dest) {
  return {dest.options, static_cast<std::size_t>(dest.num_options)};
}

/// Fetches the queue's PPD into a new file, whose path it answers in `path`.
http_status_t fetchPPD(http_t* http, const std::string& queue, std::string& path) {
  path = (std::filesystem::temp_directory_path() / "cardpanels-XXXXXX").string();
  const int file = mkstemp(path.data());
  if (file < 0) throw Error(path + ": " + std::generic_category().message(errno));
  const http_status_t status = cupsGetFd(http, ("/printers/" + queue + ".ppd").c_str(), file);
  close(file);
  return status;
}

/// The same for a class, which has the PPD of one of its printers. libcups makes a connection of
/// its own for that, without a time limit.
http_status_t fetchClassPPD(http_t* http, const std::string& queue, std::string& path) {
  std::array<char, 1024> found{};
  time_t modified = 0;
  const http_status_t status =
      cupsGetPPD3(http, queue.c_str(), &modified, found.data(), found.size());
  path = found.data();
  return status;
}

PPDFile ppdOf(http_t* http, const QueueName& name) {
  std::string path;
  http_status_t status = fetchPPD(http, name.queue, path);
  const TemporaryFile file(path);
  std::string classPath;
  if (status == HTTP_STATUS_NOT_FOUND) status = fetchClassPPD(http, name.queue, classPath);
  const TemporaryFile classFile(classPath);
  if (status == HTTP_STATUS_OK) {
    return openPPD(classPath.empty() ? path : classPath,
                   filled(_("queue {queue}"), {{"queue", name.queue}}));
  }
  if (status == HTTP_STATUS_NOT_FOUND) {
    throw Error(filled(_("The queue {queue} has no PPD."), {{"queue", name.queue}}));
  }
  throw Error(filled(_("The PPD of the queue {queue} cannot be had: {reason}"),
                     {{"queue", name.queue}, {"reason", cupsLastErrorString()}}));
}

Queue queueAt(http_t* http, const QueueName& name) {
  const Dest dest = destOf(http, name);
  Queue queue{nameOf(*dest), {}, ppdOf(http, nameOf(*dest))};
  for (const cups_option_t& each : optionsOf(*dest)) {
    if (ppdFindOption(queue.ppd.get(), each.name) != nullptr) {
      queue.savedOptions.push_back({each.name, each.value});
    }
  }
  return queue;
}

struct OpenFile {
  std::string name;
  std::ifstream stream;
};

/// Opens all files before anything is sent.
std::vector<OpenFile> opened(const std::vector<std::string>& files) {
  if (files.empty()) throw Error(_("There is no file to print."));
  std::vector<OpenFile> all;
  for (const std::string& path : files) {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    stream.peek();
    if (!stream && !stream.eof()) {
      throw Error(path + ": " + std::generic_category().message(errno != 0 ? errno : EIO));
    }
    stream.clear();
    all.push_back({std::filesystem::path(path).filename(), std::move(stream)});
  }
  return all;
}

/// Makes a job and answers its id, 0 when the server refuses. Values in braces go as names:
/// libcups would make collections of them, and cupsd hands none of those to the filters.
int createdJob(http_t* http, const std::string& queue, const std::string& title,
               const OptionList& saved, const std::vector<Option>& options) {
  OptionList encoded(saved.options());
  std::vector<Option> inBraces;
  for (const Option& each : options) {
    if (each.value.substr(0, 1) == "{") {
      inBraces.push_back(each);
      encoded.remove(each.key);
    } else {
      encoded.set(each);
    }
  }
  ipp_t* const request = ippNewRequest(IPP_OP_CREATE_JOB);
  addQueueURI(request, queue);
  addUser(request);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, title.c_str());
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_OPERATION);
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_JOB);
  for (const Option& each : inBraces) {
    ippAddString(request, IPP_TAG_JOB, IPP_TAG_NAME, each.key.c_str(), nullptr, each.value.c_str());
  }
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_SUBSCRIPTION);
  ipp_t* const answer = cupsDoRequest(http, request, ("/printers/" + queue).c_str());
  const int id = ippGetInteger(ippFindAttribute(answer, "job-id", IPP_TAG_INTEGER), 0);
  ippDelete(answer);
  return id;
}

/// A job that the server has made but not got whole; it is cancelled unless it is complete.
class NewJob {
 public:
  /// Takes the id that `createdJob` answers.
  NewJob(http_t* http, std::string queue, int id) : http_(http), queue_(std::move(queue)), id_(id) {
    if (id_ == 0) fail();
  }
  ~NewJob() {
    if (!complete_) cupsCancelJob2(http_, queue_.c_str(), id_, 0);
  }
  NewJob(const NewJob&) = delete;
  NewJob& operator=(const NewJob&) = delete;

  void send(OpenFile& file, const char* format, bool isLast) {
    if (cupsStartDocument(http_, queue_.c_str(), id_, file.name.c_str(), format, isLast ? 1 : 0) !=
        HTTP_STATUS_CONTINUE) {
      fail();
    }
    std::array<char, 1UL << 16U> buffer{};
    while (file.stream.read(buffer.data(), buffer.size()) || file.stream.gcount() > 0) {
      const auto length = static_cast<std::size_t>(file.stream.gcount());
      if (cupsWriteRequestData(http_, buffer.data(), length) != HTTP_STATUS_CONTINUE) fail();
    }
    if (cupsFinishDocument(http_, queue_.c_str()) > IPP_STATUS_OK_CONFLICTING) fail();
    complete_ = isLast;
  }

  int id() const { return id_; }

 private:
  [[noreturn]] void fail() const {
    throw Error(filled(_("The queue {queue} does not take the job: {reason}"),
                       {{"queue", queue_}, {"reason", cupsLastErrorString()}}));
  }

  http_t* http_;
  std::string queue_;
  int id_;
  bool complete_ = false;
};

/// `value` as cupsParseOptions reads it back.
std::string quotedForCups(const std::string& value) {
  const bool plain =
      !value.empty() && value.find_first_of(" \t\r\n\v\f\"'\\{") == std::string::npos;
  return plain ? value : platform::quoted(value);
}

std::string quotedForShell(const std::string& word) {
  constexpr const char* kSafe =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./=:,+@%";
  if (word.find_first_not_of(kSafe) == std::string::npos) return word;
  std::string quoted = "'";
  for (const char c : word) {
    if (c == '\'') {
      quoted += "'\\''";
    } else {
      quoted += c;
    }
  }
  return quoted + "'";
}

}  // namespace

QueueName QueueName::parse(const std::string& text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) return {text, ""};
  return {text.substr(0, slash), text.substr(slash + 1)};
}

std::string QueueName::text() const { return instance.empty() ? queue : queue + "/" + instance; }

Queue openQueue(const QueueName& name, int seconds) {
  return queueAt(connected(seconds).get(), name);
}

Queue openQueue(const QueueName& name, int seconds, const std::atomic<bool>& abandoned) {
  Waiting waiting{std::chrono::steady_clock::now() + std::chrono::seconds(seconds), abandoned};
  const Http http = connected(seconds);
  httpSetTimeout(http.get(), Waiting::kInterval, Waiting::goesOn, &waiting);
  return queueAt(http.get(), name);
}

int submitJob(const QueueName& name, const std::string& title,
              const std::vector<std::string>& files, const std::vector<Option>& options,
              int seconds) {
  std::vector<OpenFile> documents = opened(files);
  const Http http = connected(seconds);
  const Dest dest = destOf(http.get(), name);
  OptionList saved;
  for (const cups_option_t& each : optionsOf(*dest)) saved.set({each.name, each.value});
  const std::string format = saved.value("document-format").value_or(CUPS_FORMAT_AUTO);
  NewJob job(http.get(), dest->name, createdJob(http.get(), dest->name, title, saved, options));
  for (OpenFile& each : documents) job.send(each, format.c_str(), &each == &documents.back());
  return job.id();
}

std::string lpArguments(const std::vector<Option>& options) {
  std::string arguments;
  for (const Option& each : options) {
    if (!arguments.empty()) arguments += ' ';
    arguments += "-o " + quotedForShell(each.key + "=" + quotedForCups(each.value));
  }
  return arguments;
}

void saveOptions(const QueueName& name, const std::vector<Option>& options, int seconds) {
  const Http http = connected(seconds);
  const QueueName known = nameOf(*destOf(http.get(), {name.queue, ""}));
  Dests dests;
  dests.count = cupsGetDests2(http.get(), &dests.list);
  const char* const instance = orNull(name.instance);
  dests.count = cupsAddDest(known.queue.c_str(), instance, dests.count, &dests.list);
  cups_dest_t* const dest = cupsGetDest(known.queue.c_str(), instance, dests.count, dests.list);
  for (const Option& each : options) {
    dest->num_options =
        cupsAddOption(each.key.c_str(), each.value.c_str(), dest->num_options, &dest->options);
  }
  if (cupsSetDests2(http.get(), dests.count, dests.list) == 0) return;
  const std::string reason = cupsLastError() <= IPP_STATUS_OK_CONFLICTING
                                 ? std::generic_category().message(errno)
                                 : cupsLastErrorString();
  throw Error(filled(_("The options of the queue {queue} cannot be saved: {reason}"),
                     {{"queue", name.text()}, {"reason", reason}}));
}

}  // namespace cardpanels::host
