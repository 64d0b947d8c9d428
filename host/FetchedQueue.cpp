#include "host/FetchedQueue.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <system_error>
#include <utility>

#include "host/CardKeys.h"
#include "host/CommonPPD.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "host/Question.h"
#include "host/RemoteQueue.h"
#include "host/Talk.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;
using platform::onOneLine;

constexpr std::size_t kMebibyte = 1UL << 20U;
constexpr std::size_t kLargestPPD = 16 * kMebibyte;
constexpr int kSecondsHere = 3;  // of those in which two servers are to answer

/// A file that goes away with this.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& text)
      : path_((std::filesystem::temp_directory_path() / "cardpanels-XXXXXX").string()) {
    const int file = mkstemp(path_.data());
    if (file < 0) fail();
    close(file);
    errno = 0;
    if (!(std::ofstream(path_, std::ios::binary) << text).flush()) {
      unlink(path_.c_str());
      fail();
    }
  }
  ~TemporaryFile() { unlink(path_.c_str()); }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& path() const { return path_; }

 private:
  [[noreturn]] void fail() const {
    throw Error(path_ + ": " + std::generic_category().message(errno != 0 ? errno : EIO));
  }

  std::string path_;
};

/// A queue that prints, and the PPD that its server has of it, if any.
struct Source {
  std::string queue;
  std::string device;
  std::optional<std::string> text;
};

struct Answer {
  Destination destination;
  std::vector<Source> sources;  // a class's queues
};

std::string placeOf(const std::string& queue) {
  return filled(_("queue {queue}"), {{"queue", onOneLine(queue)}});
}

[[noreturn]] void failWithoutPPD(const std::string& queue, const std::string& reason) {
  throw Error(filled(_("The PPD of the queue {queue} cannot be had: {reason}"),
                     {{"queue", onOneLine(queue)}, {"reason", reason}}));
}

std::optional<std::string> textAt(Talk& talk, const std::string& path, const std::string& queue) {
  try {
    return talk.get(path + ".ppd", kLargestPPD);
  } catch (const Talk::TooLarge&) {
    throw Error(
        filled(_("The PPD of the queue {queue} is larger than {size} MiB."),
               {{"queue", onOneLine(queue)}, {"size", std::to_string(kLargestPPD / kMebibyte)}}));
  } catch (const PasswordNeeded&) {
    throw;
  } catch (const Error& error) {
    failWithoutPPD(queue, error.what());
  }
}

void addSources(Talk& talk, const Destination& destination, std::set<std::string>& seen,
                std::vector<Source>& sources) {
  const std::string& queue = destination.name.queue;
  if (!seen.insert(queue).second) return;
  for (const std::string& each : destination.members) {
    addSources(talk, destinationOf(talk, {each, ""}), seen, sources);
  }
  if (!destination.members.empty()) return;
  sources.push_back({queue, destination.device, localPPDText(talk, queue)});
}

Answer answered(Talk& talk, const QueueName& name) {
  Answer answer{destinationOf(talk, name), {}};
  std::set<std::string> seen;
  addSources(talk, answer.destination, seen, answer.sources);
  return answer;
}

/// Nothing of a queue that passes its jobs on to none of another server.
std::optional<Source> sourceElsewhere(Talk& talk, const std::string& queue) {
  const Destination destination = destinationOf(talk, {queue, ""});
  if (!remoteQueueOf(destination.device)) return std::nullopt;
  return Source{queue, destination.device, localPPDText(talk, queue)};
}

/// What the other server says to anybody: the user's password here is none of its business.
std::optional<std::string> textAt(const RemoteQueue& remote, const std::string& queue,
                                  const Terms& terms) {
  const OtherServer there(remote.server);
  try {
    return answerOfServer<std::optional<std::string>>(
        {.seconds = terms.seconds, .abandoned = terms.abandoned},
        [remote, queue](Talk& talk) { return textAt(talk, remote.path, queue); });
  } catch (const PasswordNeeded& error) {
    failWithoutPPD(queue, error.what());
  }
}

struct OpenedPPD {
  PPDFile records;
  NamedPPD ppd;
  bool isElsewhere = false;

  bool hasCardOptions() const {
    return std::any_of(std::begin(kCardKeys), std::end(kCardKeys), [this](const char* key) {
      return findOption(records.get(), key) != nullptr;
    });
  }
};

OpenedPPD opened(NamedPPD ppd) {
  const TemporaryFile file(ppd.text);
  PPDFile records = openPPD(file.path(), ppd.name);
  return {std::move(records), std::move(ppd)};
}

/// Whether a queue with that PPD hands a job's options to the next server. CUPS' backend leaves
/// them out with a document that was made ready for a driver there (`application/vnd.cups-…`); a
/// driverless queue's PPD makes another one.
bool passesOptionsOn(ppd_file_t* ppd) {
  return ppdFindAttr(ppd, "cupsFilter2", nullptr) != nullptr;
}

std::optional<OpenedPPD> ppdOf(const Source& source, const Terms& terms) {
  std::optional<OpenedPPD> own;
  if (source.text) own = opened({placeOf(source.queue), *source.text});
  if (own && (own->hasCardOptions() || !passesOptionsOn(own->records.get()))) return own;
  const auto remote = remoteQueueOf(source.device);
  const auto text = remote ? textAt(*remote, source.queue, terms) : std::nullopt;
  if (!text) return own;
  OpenedPPD theirs =
      opened({filled(_("queue {queue} at {server}"),
                     {{"queue", onOneLine(source.queue)}, {"server", remote->server.server}}),
              *text});
  theirs.isElsewhere = true;
  return own && !theirs.hasCardOptions() ? std::move(own) : std::move(theirs);
}

/// What a class's queues have in common; those without a PPD take anything.
std::vector<OpenedPPD> differentPPDs(const std::vector<Source>& sources, const Terms& terms) {
  std::vector<OpenedPPD> all;
  for (const Source& source : sources) {
    auto ppd = ppdOf(source, terms);
    const bool isNew = ppd && std::none_of(all.begin(), all.end(), [&](const OpenedPPD& each) {
                         return each.ppd.text == ppd->ppd.text;
                       });
    if (isNew) all.push_back(std::move(*ppd));
  }
  return all;
}

}  // namespace

std::optional<std::string> localPPDText(Talk& talk, const std::string& queue) {
  return textAt(talk, "/printers/" + queue, queue);
}

FetchedQueue fetchQueue(const QueueName& name, const Terms& terms) {
  auto [destination, sources] =
      answerOfServer<Answer>(terms, [name](Talk& talk) { return answered(talk, name); });
  const std::string& queue = destination.name.queue;
  auto ppds = differentPPDs(sources, terms);
  if (ppds.empty())
    throw Error(filled(_("The queue {queue} has no PPD."), {{"queue", onOneLine(queue)}}));
  if (ppds.size() == 1) {
    auto& [records, ppd, isElsewhere] = ppds.front();
    return {std::move(destination), std::move(records), std::move(ppd.text), {}, isElsewhere};
  }
  const bool isElsewhere =
      std::any_of(ppds.begin(), ppds.end(), [](const OpenedPPD& each) { return each.isElsewhere; });
  std::vector<NamedPPD> texts;
  texts.reserve(ppds.size());
  for (OpenedPPD& each : ppds) texts.push_back(std::move(each.ppd));
  CommonPPD common = commonPPD(texts);
  OpenedPPD all = opened({placeOf(queue), std::move(common.text)});
  return {std::move(destination), std::move(all.records), std::move(all.ppd.text),
          std::move(common.leftOut), isElsewhere};
}

bool hasCardOptionsElsewhere(const std::string& queue, const Terms& terms) {
  Terms here = terms;
  Terms there = terms;
  here.seconds = std::min(kSecondsHere, terms.seconds);
  there.seconds = std::max(terms.seconds - here.seconds, 1);
  try {
    const auto source = answerOfServer<std::optional<Source>>(
        here, [queue](Talk& talk) { return sourceElsewhere(talk, queue); });
    const auto ppd = source ? ppdOf(*source, there) : std::nullopt;
    return ppd && ppd->isElsewhere && ppd->hasCardOptions();
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace cardpanels::host
