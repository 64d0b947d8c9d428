#include "host/SharedFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

namespace cardpanels::host {
namespace {

constexpr auto kPatience = std::chrono::seconds(10);
constexpr auto kPause = std::chrono::milliseconds(10);
constexpr mode_t kPrivateFolder = 0700;
constexpr mode_t kPrivateFile = 0600;
constexpr mode_t kPermissions = 07777;

[[noreturn]] void fail(int number = errno) {
  throw std::system_error(number, std::generic_category());
}

void check(int result) {
  if (result < 0) fail();
}

class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) { check(number); }
  ~Descriptor() { close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  int number() const { return number_; }

  struct stat status() const {
    struct stat now {};
    check(fstat(number_, &now));
    return now;
  }

 private:
  int number_;
};

/// A limit on the size of files, which ends a program unless it asks to be told.
class WithoutSizeSignal {
 public:
  WithoutSizeSignal() {
    sigemptyset(&signal_);
    sigaddset(&signal_, SIGXFSZ);
    pthread_sigmask(SIG_BLOCK, &signal_, &before_);
  }
  ~WithoutSizeSignal() {
    const timespec atOnce{};
    if (sigismember(&before_, SIGXFSZ) == 0) sigtimedwait(&signal_, nullptr, &atOnce);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  WithoutSizeSignal(const WithoutSizeSignal&) = delete;
  WithoutSizeSignal& operator=(const WithoutSizeSignal&) = delete;

 private:
  sigset_t signal_{};
  sigset_t before_{};
};

std::string contentOf(const Descriptor& file) {
  std::string content;
  std::array<char, 1UL << 14U> part{};
  for (;;) {
    const ssize_t count = read(file.number(), part.data(), part.size());
    if (count < 0 && errno == EINTR) continue;
    check(static_cast<int>(count));
    if (count == 0) return content;
    content.append(part.data(), static_cast<std::size_t>(count));
  }
}

void writeAll(const Descriptor& file, std::string_view content) {
  const WithoutSizeSignal without;
  while (!content.empty()) {
    const ssize_t count = write(file.number(), content.data(), content.size());
    if (count < 0 && errno == EINTR) continue;
    check(static_cast<int>(count));
    content.remove_prefix(static_cast<std::size_t>(count));
  }
  check(fsync(file.number()));
}

/// A new file beside another one, gone at the end unless it took the other's place.
class Replacement {
 public:
  Replacement(std::string target, const struct stat& like, const std::string& content)
      : target_(std::move(target)), path_(target_ + ".XXXXXX") {
    const Descriptor file(mkostemp(path_.data(), O_CLOEXEC));
    try {
      if (like.st_uid != geteuid() || like.st_gid != getegid()) {
        check(fchown(file.number(), like.st_uid, like.st_gid));
      }
      check(fchmod(file.number(), like.st_mode & kPermissions));
      writeAll(file, content);
    } catch (...) {
      unlink(path_.c_str());
      throw;
    }
  }
  ~Replacement() {
    if (!path_.empty()) unlink(path_.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void take() {
    check(rename(path_.c_str(), target_.c_str()));
    path_.clear();
  }

 private:
  std::string target_;
  std::string path_;
};

/// Waits until nobody else has the file locked.
void lock(const Descriptor& file) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (flock(file.number(), LOCK_EX | LOCK_NB) != 0) {
    if (errno != EWOULDBLOCK && errno != EINTR) fail();
    if (std::chrono::steady_clock::now() > end) fail(EBUSY);
    std::this_thread::sleep_for(kPause);
  }
}

/// Whether that is still the file at `path`, with what it held then.
bool isAsThen(const std::string& path, const struct stat& then) {
  struct stat now {};
  return stat(path.c_str(), &now) == 0 && now.st_dev == then.st_dev && now.st_ino == then.st_ino &&
         now.st_size == then.st_size && now.st_mtim.tv_sec == then.st_mtim.tv_sec &&
         now.st_mtim.tv_nsec == then.st_mtim.tv_nsec;
}

/// False when somebody else has written meanwhile.
bool changeOnce(const std::string& path,
                const std::function<std::string(const std::string&)>& change) {
  const Descriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, kPrivateFile));
  lock(file);
  const std::string target = std::filesystem::canonical(path).string();
  const struct stat then = file.status();
  if (!isAsThen(target, then)) return false;
  Replacement replacement(target, then, change(contentOf(file)));
  if (!isAsThen(target, then)) return false;
  replacement.take();
  return true;
}

}  // namespace

std::string readFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0 && errno == ENOENT) return {};
  return contentOf(Descriptor(file));
}

void changeFile(const std::string& path,
                const std::function<std::string(const std::string& content)>& change) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  if (mkdir(folder.c_str(), kPrivateFolder) != 0 && errno != EEXIST) fail();
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!changeOnce(path, change)) {
    if (std::chrono::steady_clock::now() > end) fail(EBUSY);
  }
}

}  // namespace cardpanels::host
