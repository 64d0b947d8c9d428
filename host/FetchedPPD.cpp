#include "host/FetchedPPD.h"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

#include "host/Error.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr std::size_t kMebibyte = 1UL << 20U;
constexpr std::size_t kLargestPPD = 16 * kMebibyte;

std::optional<std::string> textOf(Talk& talk, const std::string& queue) {
  return talk.get("/printers/" + queue + ".ppd", kLargestPPD);
}

std::optional<std::string> textOf(Talk& talk, const Destination& destination) {
  auto text = textOf(talk, destination.name.queue);
  for (const std::string& each : destination.members) {
    if (text) break;
    text = textOf(talk, each);
  }
  return text;
}

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

}  // namespace

FetchedPPD::FetchedPPD(Talk& talk, const Destination& destination)
    : queue_(platform::onOneLine(destination.name.queue)) {
  std::optional<std::string> text;
  try {
    text = textOf(talk, destination);
  } catch (const Talk::TooLarge&) {
    throw Error(filled(_("The PPD of the queue {queue} is larger than {size} MiB."),
                       {{"queue", queue_}, {"size", std::to_string(kLargestPPD / kMebibyte)}}));
  } catch (const PasswordNeeded&) {
    throw;
  } catch (const Error& error) {
    throw Error(filled(_("The PPD of the queue {queue} cannot be had: {reason}"),
                       {{"queue", queue_}, {"reason", error.what()}}));
  }
  if (!text) throw Error(filled(_("The queue {queue} has no PPD."), {{"queue", queue_}}));
  text_ = std::move(*text);
}

PPDFile FetchedPPD::open() const {
  const TemporaryFile file(text_);
  return openPPD(file.path(), filled(_("queue {queue}"), {{"queue", queue_}}));
}

}  // namespace cardpanels::host
