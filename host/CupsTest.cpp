#include "host/CupsTest.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/ASCII.h"

namespace cardpanels::host {
namespace {

constexpr int kNotFound = 127;

void check(int error) {
  if (error != 0) throw std::system_error(error, std::generic_category(), "cupstestppd");
}

std::string readAll(int stream) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (;;) {
    const ssize_t count = read(stream, buffer.data(), buffer.size());
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

struct Finished {
  int status;  // -1 when a signal ended it
  std::string output;
};

/// Runs it in English, whose marks are known. `env` tells by its exit status when it is not there.
Finished run(const std::string& path) {
  std::array<int, 2> ends{};
  check(pipe2(ends.data(), O_CLOEXEC) == 0 ? 0 : errno);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  std::array<std::string, 4> words{"env", "LC_ALL=C", "cupstestppd",
                                   std::filesystem::absolute(path).string()};
  const std::array<char*, 5> arguments{words[0].data(), words[1].data(), words[2].data(),
                                       words[3].data(), nullptr};
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(ends[1]);
  std::string output = error == 0 ? readAll(ends[0]) : "";
  close(ends[0]);
  check(error);
  int status = 0;
  while (waitpid(process, &status, 0) < 0) check(errno == EINTR ? 0 : errno);
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, std::move(output)};
}

/// Takes a line of the output, which the remark before it may go on with.
void addRemark(std::vector<CupsRemark>& remarks, std::string_view line) {
  constexpr std::string_view kFails = "**FAIL**";
  constexpr std::string_view kWarns = "WARN";
  constexpr std::string_view kRefers = "REF: ";
  for (const std::string_view mark : {kFails, kWarns}) {
    if (!line.starts_with(mark)) continue;
    const std::string_view text = platform::trimmed(line.substr(mark.size()));
    remarks.push_back({mark == kFails, std::string(text)});
    return;
  }
  if (remarks.empty()) return;
  const bool refers = line.starts_with(kRefers);
  std::string& text = remarks.back().text;
  text += refers ? " (" + std::string(line.substr(kRefers.size())) + ")" : " " + std::string(line);
}

}  // namespace

std::optional<std::vector<CupsRemark>> testedByCups(const std::string& path) {
  const auto [status, output] = run(path);
  if (status == kNotFound) return std::nullopt;
  std::vector<CupsRemark> remarks;
  std::string_view rest = output;
  bool hasFailed = false;
  while (!rest.empty()) {
    const std::string_view line = rest.substr(0, rest.find('\n'));
    rest.remove_prefix(std::min(line.size() + 1, rest.size()));
    addRemark(remarks, platform::trimmed(line));
    hasFailed = hasFailed || (!remarks.empty() && remarks.back().isError);
  }
  if (status != 0 && !hasFailed) {
    remarks.push_back({true, std::string(platform::trimmed(output))});
  }
  return remarks;
}

}  // namespace cardpanels::host
