#include "host/Submission.h"

#include <cups/cups.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <mutex>
#include <sstream>
#include <system_error>
#include <utility>

#include "host/FetchedQueue.h"
#include "host/KeptConnection.h"
#include "host/PPDRecords.h"
#include "host/PrintServer.h"
#include "host/Question.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr std::chrono::seconds kNew(5);  // a basis

struct OpenDocument {
  std::string name;  // empty for none
  std::unique_ptr<std::istream> stream;
};

OpenDocument openedFile(const std::string& path) {
  errno = 0;
  auto stream = std::make_unique<std::ifstream>(path, std::ios::binary);
  stream->peek();
  if (!*stream && !stream->eof()) {
    throw Error(path + ": " + std::generic_category().message(errno != 0 ? errno : EIO));
  }
  stream->clear();
  const std::string name = std::filesystem::path(path).filename();
  if (stream->tellg() != -1) return {name, std::move(stream)};
  // A pipe gives what it has only once.
  auto kept = std::make_unique<std::stringstream>();
  std::copy(std::istreambuf_iterator<char>(*stream), {}, std::ostreambuf_iterator<char>(*kept));
  return {name, std::move(kept)};
}

/// Opens all that is to be printed before anything is sent.
std::vector<OpenDocument> opened(const Submission& job) {
  std::vector<OpenDocument> all;
  if (job.document) all.push_back({"", std::make_unique<std::istringstream>(*job.document)});
  for (const std::string& path : job.files) all.push_back(openedFile(path));
  if (all.empty()) throw Error(_("There is no file to print."));
  return all;
}

/// Throws the `Error` that the queue does not take the job.
[[noreturn]] void failAtJob(const std::string& queue, const std::string& reason) {
  throw Error(filled(_("The queue {queue} does not take the job: {reason}"),
                     {{"queue", platform::onOneLine(queue)}, {"reason", reason}}));
}

/// Makes a job and answers its id. Options' values in braces go as names: libcups would make
/// collections of them, and cupsd hands none of those to the filters.
int createdJob(Talk& talk, const std::string& queue, const std::string& title,
               const OptionList& attributes, const std::vector<Option>& options) {
  OptionList encoded(attributes.options());
  std::vector<Option> inBraces;
  for (const Option& each : options) {
    if (each.value.substr(0, 1) == "{") {
      inBraces.push_back(each);
      encoded.remove(each.key);
    } else {
      encoded.set(each);
    }
  }
  const Ipp message = queueRequest(IPP_OP_CREATE_JOB, queue);
  ipp_t* const request = message.get();
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, title.c_str());
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_OPERATION);
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_JOB);
  for (const Option& each : inBraces) {
    ippAddString(request, IPP_TAG_JOB, IPP_TAG_NAME, each.key.c_str(), nullptr, each.value.c_str());
  }
  cupsEncodeOptions2(request, encoded.count, encoded.list, IPP_TAG_SUBSCRIPTION);
  const Ipp answer = talk.ask(message, "/printers/" + queue);
  if (!isGranted(answer.get())) failAtJob(queue, statusText(answer.get()));
  const int id = ippGetInteger(ippFindAttribute(answer.get(), "job-id", IPP_TAG_INTEGER), 0);
  if (id <= 0) failAtJob(queue, _("It does not tell the job's number."));
  return id;
}

void sendDocument(Talk& talk, const std::string& queue, int id, OpenDocument& document,
                  const std::string& format, bool isLast) {
  const Ipp request = jobRequest(IPP_OP_SEND_DOCUMENT, queue, id);
  if (!document.name.empty()) {
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "document-name", nullptr,
                 document.name.c_str());
  }
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr,
               format.c_str());
  ippAddBoolean(request.get(), IPP_TAG_OPERATION, "last-document", isLast ? 1 : 0);
  const Ipp answer = talk.send(request, "/printers/" + queue, *document.stream);
  if (!isGranted(answer.get())) failAtJob(queue, statusText(answer.get()));
}

void cancelJob(Talk& talk, const std::string& queue, int id) {
  const Ipp answer = talk.ask(jobRequest(IPP_OP_CANCEL_JOB, queue, id), "/printers/" + queue);
  if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
}

/// Cancels the job `id` over a connection of its own. Throws `Error` when that cannot be done.
void cancelJob(const std::string& queue, int id, const Terms& terms) {
  askServer(terms, [queue, id](Talk& talk) { cancelJob(talk, queue, id); });
}

/// Whether the server has all `documents` of the job, and nobody has cancelled it.
bool isWhole(ipp_t* job, int documents) {
  const auto number = [job](const char* name) {
    return ippGetInteger(ippFindAttribute(job, name, IPP_TAG_ZERO), 0);
  };
  const int state = number("job-state");
  return state != IPP_JSTATE_CANCELED && state != IPP_JSTATE_ABORTED &&
         number("number-of-documents") >= documents;
}

/// How far a job is that one thread makes and another waits for.
class NewJob {
 public:
  /// For the thread that makes it. Answers false when nobody waits for it any more.
  bool begin(const std::string& queue, int id) {
    const std::lock_guard lock(mutex_);
    queue_ = queue;
    id_ = id;
    return !isGivenUp_;
  }
  void complete() {
    const std::lock_guard lock(mutex_);
    isComplete_ = true;
  }

  /// For the thread that waits. Answers the id of the job that is still to be cancelled, 0 for
  /// none; with `evenWhole` also of one that is complete.
  int giveUp(bool evenWhole) {
    const std::lock_guard lock(mutex_);
    isGivenUp_ = true;
    return isComplete_ && !evenWhole ? 0 : id_;
  }
  /// When it has been given up.
  const std::string& queue() const { return queue_; }

 private:
  std::mutex mutex_;
  std::string queue_;
  int id_ = 0;
  bool isComplete_ = false;
  bool isGivenUp_ = false;
};

/// What the job carries besides the PPD's options: its own attributes over saved ones.
OptionList attributesOf(const Submission& job, const JobBasis& basis) {
  OptionList attributes(basis.options);
  for (const Option& each : job.attributes) attributes.set(each);
  return attributes;
}

/// As `lp` tells it.
std::string formatOf(const OptionList& attributes) {
  if (attributes.value("raw")) return CUPS_FORMAT_RAW;
  return attributes.value("document-format").value_or(CUPS_FORMAT_AUTO);
}

/// The size goes out once, as the PPD names it, but for a server that would add another one under
/// the name `media`.
std::vector<Option> withMedia(const std::vector<Option>& options, bool addsMedia) {
  std::vector<Option> all = options;
  for (const Option& each : options) {
    if (addsMedia && isPageSize(each.key)) all.push_back({"media", each.value});
  }
  return all;
}

bool isNew(const std::optional<JobBasis>& basis) {
  return basis && std::chrono::steady_clock::now() - basis->read < kNew;
}

int made(Talk& talk, const Submission& job, const JobBasis& basis,
         std::vector<OpenDocument>& documents, NewJob& progress, const Terms& cancelling) {
  const std::string& queue = basis.queue;
  const OptionList attributes = attributesOf(job, basis);
  const std::string format = formatOf(attributes);
  const int id =
      createdJob(talk, queue, job.title, attributes, withMedia(job.options, basis.addsMedia));
  if (!progress.begin(queue, id)) {
    cancelJob(queue, id, cancelling);
    return 0;
  }
  for (OpenDocument& each : documents) {
    sendDocument(talk, queue, id, each, format, &each == &documents.back());
  }
  progress.complete();
  return id;
}

/// Cancels the job that has failed with `error`. Throws `JobLeft` when that cannot be done.
void cancelAfter(const Error& error, const std::string& queue, int id, const Terms& terms) {
  try {
    cancelJob(queue, id, terms);
  } catch (const Error& failure) {
    throw JobLeft(error.what() +
                      (" " + filled(_("The job {job} could not be cancelled: {reason}"),
                                    {{"job", platform::onOneLine(queue) + "-" + std::to_string(id)},
                                     {"reason", failure.what()}})),
                  id);
  }
}

}  // namespace

JobBasis currentBasis(const Submission& job, const Terms& terms) {
  if (isNew(job.basis)) return *job.basis;
  const FetchedQueue now = fetchQueue(job.queue, terms);
  if (job.ppdText && *job.ppdText != now.ppdText) {
    throw PPDChanged(
        filled(_("The options of the queue {queue} have changed meanwhile. Nothing was "
                 "printed."),
               {{"queue", platform::onOneLine(now.destination.name.queue)}}));
  }
  return basisOf(now.destination, now.ppd.get());
}

bool isWholeElseCancelled(const Submission& job, int id, const Terms& terms) {
  const auto documents = static_cast<int>(job.files.size() + (job.document ? 1 : 0));
  return answerOfServer<bool>(terms, [queue = job.queue.queue, id, documents](Talk& talk) {
    const Ipp answer = talk.ask(jobRequest(IPP_OP_GET_JOB_ATTRIBUTES, queue, id));
    if (ippGetStatusCode(answer.get()) == IPP_STATUS_ERROR_NOT_FOUND) return false;
    if (!isGranted(answer.get())) failAtServer(statusText(answer.get()));
    if (isWhole(answer.get(), documents)) return true;
    const int state = ippGetInteger(ippFindAttribute(answer.get(), "job-state", IPP_TAG_ENUM), 0);
    if (state < IPP_JSTATE_CANCELED) cancelJob(talk, queue, id);
    return false;
  });
}

int submitJob(const Submission& job, const Terms& terms) {
  const auto documents = std::make_shared<std::vector<OpenDocument>>(opened(job));
  const auto progress = std::make_shared<NewJob>();
  Terms cancelling = terms;
  cancelling.abandoned = nullptr;
  cancelling.kept = nullptr;
  Terms onOneConnection = terms;
  if (!terms.kept) onOneConnection.kept = std::make_shared<KeptConnection>();
  const auto isAbandoned = [&terms] { return terms.abandoned != nullptr && *terms.abandoned; };
  try {
    const JobBasis basis = currentBasis(job, onOneConnection);
    const int id = answerOfServer<int>(
        onOneConnection, [job, basis, documents, progress, cancelling](Talk& talk) {
          return made(talk, job, basis, *documents, *progress, cancelling);
        });
    if (isAbandoned()) throw Error(_("Nothing was printed."));
    return id;
  } catch (const Error& error) {
    const int id = progress->giveUp(isAbandoned());
    if (id != 0) cancelAfter(error, progress->queue(), id, cancelling);
    throw;
  }
}

}  // namespace cardpanels::host
