#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "bench/support/Median.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TemporaryFolder.h"

// What a job by cardprint without its dialog costs beside the same job by lp: processor time of the
// whole process, and requests to the print server.

namespace {

using namespace cardpanels;

constexpr int kRuns = 41;
constexpr double kRatio = 1.8;
constexpr std::size_t kRequests = 4;
constexpr int kConnections = 1;

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Runs `command`, and answers its processor time in seconds.
double costOf(std::vector<std::string> command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string& each : command) arguments.push_back(each.data());
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error =
      posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0) throw std::system_error(error, std::generic_category(), command[0]);
  int status = 0;
  rusage usage{};
  if (wait4(process, &status, 0, &usage) != process || status != 0) {
    throw std::runtime_error(command[0] + " fails");
  }
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

int run() {
  test::PrivatePrintServer server;
  server.addQueue("card",
                  test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd"));
  const test::TemporaryFolder folder;
  const std::string file = folder.write("badge.txt", "Ada Lovelace\n");
  const std::vector<std::string> job{"-d", "card", "-o", "cardLaminate=Both", file};
  std::vector<std::string> lp{"lp"};
  std::vector<std::string> cardprint{CARDPANELS_BUILD_DIR "/bin/cardprint", "--no-dialog"};
  for (auto* each : {&lp, &cardprint}) each->insert(each->end(), job.begin(), job.end());

  std::vector<double> ratios;
  for (int i = 0; i < kRuns; ++i) {
    const double base = costOf(lp);
    ratios.push_back(costOf(cardprint) / base);
  }
  server.traffic();
  costOf(cardprint);
  const auto [connections, requests] = server.traffic();

  const double ratio = bench::median(ratios);
  std::printf(
      "ratio cardprint --no-dialog / lp: %.2f (at most %.2f), %zu requests (at most %zu) on %d "
      "connections (at most %d)\n",
      ratio, kRatio, requests.size(), kRequests, connections, kConnections);
  const bool isCheap =
      ratio <= kRatio && requests.size() <= kRequests && connections <= kConnections;
  return isCheap ? 0 : 1;
}

}  // namespace

int main() {
  try {
    return run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 2;
  }
}
