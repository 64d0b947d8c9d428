#include "apps/cardprint/Follower.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

namespace cardpanels::cardprint {
namespace {

constexpr const char* kThisProgram = "/proc/self/exe";

/// How the follower starts: in a session of its own, so that no terminal ends it, and without the
/// streams that somebody may read to their end.
class Start {
 public:
  Start() {
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSID);
    posix_spawn_file_actions_init(&actions_);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
      posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0);
  }
  ~Start() {
    posix_spawn_file_actions_destroy(&actions_);
    posix_spawnattr_destroy(&attributes_);
  }
  Start(const Start&) = delete;
  Start& operator=(const Start&) = delete;

  void run(std::vector<std::string> command) const {
    std::vector<char*> words;
    words.reserve(command.size() + 1);
    for (std::string& each : command) words.push_back(each.data());
    words.push_back(nullptr);
    pid_t process = 0;
    posix_spawn(&process, kThisProgram, &actions_, &attributes_, words.data(), environ);
  }

 private:
  posix_spawnattr_t attributes_{};
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

void startFollower(const host::ServerChoice& server, const std::string& queue,
                   const std::vector<int>& ids) {
  std::vector<std::string> command{"cardprint", "-d", queue, std::string("--") + kFollow, ""};
  for (const int id : ids) command.back() += std::to_string(id) + " ";
  if (!server.server.empty()) command.insert(command.end(), {"-h", server.server});
  if (!server.user.empty()) command.insert(command.end(), {"-U", server.user});
  if (server.isEncrypted) command.emplace_back("-E");
  Start().run(std::move(command));
}

}  // namespace cardpanels::cardprint
