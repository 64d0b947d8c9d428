#include "host/FetchedPPD.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "host/Error.h"
#include "platform/Messages.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

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

}  // namespace

FetchedPPD::FetchedPPD(http_t* http, const std::string& queue) : queue_(queue) {
  http_status_t status = fetchPPD(http, queue, path_);
  if (status == HTTP_STATUS_NOT_FOUND) {
    unlink(path_.c_str());
    status = fetchClassPPD(http, queue, path_);
  }
  if (status == HTTP_STATUS_OK) return;
  const std::string reason = cupsLastErrorString();
  unlink(path_.c_str());
  if (status == HTTP_STATUS_NOT_FOUND) {
    throw Error(filled(_("The queue {queue} has no PPD."), {{"queue", queue}}));
  }
  throw Error(filled(_("The PPD of the queue {queue} cannot be had: {reason}"),
                     {{"queue", queue}, {"reason", reason}}));
}

FetchedPPD::~FetchedPPD() { unlink(path_.c_str()); }

std::string FetchedPPD::text() const {
  std::ifstream file(path_, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

PPDFile FetchedPPD::open() const {
  return openPPD(path_, filled(_("queue {queue}"), {{"queue", queue_}}));
}

}  // namespace cardpanels::host
