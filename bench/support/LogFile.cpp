#include "bench/support/LogFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace cardpanels::bench {
namespace {

int checked(int result) {
  if (result < 0) throw std::system_error(errno, std::generic_category(), "the trace's file");
  return result;
}

}  // namespace

LogFile::LogFile()
    : descriptor_(checked(open(std::filesystem::temp_directory_path().c_str(),
                               O_TMPFILE | O_RDWR | O_CLOEXEC, 0600))) {}

LogFile::~LogFile() { close(descriptor_); }

void LogFile::startOver() const {
  checked(ftruncate(descriptor_, 0));
  checked(static_cast<int>(lseek(descriptor_, 0, SEEK_SET)));
}

}  // namespace cardpanels::bench
