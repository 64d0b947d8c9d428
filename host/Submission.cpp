#include "host/Submission.h"

#include <cups/cups.h>

#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

#include "host/Destination.h"
#include "host/FetchedPPD.h"
#include "host/MediaOption.h"
#include "host/PPDRecords.h"
#include "host/PrintServer.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

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
  Ipp message = queueRequest(IPP_OP_CREATE_JOB, queue);
  ipp_t* const request = message.get();
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, title.c_str());
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_OPERATION);
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_JOB);
  for (const Option& each : inBraces) {
    ippAddString(request, IPP_TAG_JOB, IPP_TAG_NAME, each.key.c_str(), nullptr, each.value.c_str());
  }
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_SUBSCRIPTION);
  const Ipp answer = answered(http, std::move(message), "/printers/" + queue);
  return ippGetInteger(ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER), 0);
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

OptionList savedBesides(const cups_dest_t& dest, ppd_file_t* ppd) {
  OptionList saved;
  for (const cups_option_t& each : optionsOf(dest)) {
    const bool isOfPPD = findOption(ppd, each.name) != nullptr || isMedia(ppd, each.name);
    if (!isOfPPD) saved.set({each.name, each.value});
  }
  return saved;
}

/// The value of `media` that the server adds to jobs without one; "" for none.
std::string serverMedia(http_t* http, const std::string& queue) {
  Ipp request = queueRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, queue);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
               "media-default");
  const Ipp answer = answered(http, std::move(request));
  const char* const media =
      ippGetString(ippFindAttribute(answer.get(), "media-default", IPP_TAG_ZERO), 0, nullptr);
  return media == nullptr ? "" : media;
}

/// The size goes out once, as the PPD names it, but for a server that would add another one under
/// the name `media`.
std::vector<Option> withMedia(const std::vector<Option>& options, http_t* http,
                              const cups_dest_t& dest, ppd_file_t* ppd) {
  const char* const saved = cupsGetOption("media", dest.num_options, dest.options);
  if (saved == nullptr || !isMedia(ppd, "media") || serverMedia(http, dest.name) != saved) {
    return options;
  }
  std::vector<Option> all = options;
  for (const Option& each : options) {
    if (isPageSize(*findOption(ppd, each.key))) all.push_back({"media", each.value});
  }
  return all;
}

}  // namespace

int submitJob(const Submission& job, int seconds) {
  std::vector<OpenFile> documents = opened(job.files);
  const Http http = connected(seconds);
  const Dest dest = destOf(http.get(), job.queue);
  const FetchedPPD ppd(http.get(), dest->name);
  if (job.ppdText && *job.ppdText != ppd.text()) {
    throw PPDChanged(
        filled(_("The options of the queue {queue} have changed meanwhile. Nothing was "
                 "printed."),
               {{"queue", dest->name}}));
  }
  const PPDFile records = ppd.open();
  const OptionList saved = savedBesides(*dest, records.get());
  const std::string format = saved.value("document-format").value_or(CUPS_FORMAT_AUTO);
  NewJob made(http.get(), dest->name,
              createdJob(http.get(), dest->name, job.title, saved,
                         withMedia(job.options, http.get(), *dest, records.get())));
  for (OpenFile& each : documents) made.send(each, format.c_str(), &each == &documents.back());
  return made.id();
}

}  // namespace cardpanels::host
