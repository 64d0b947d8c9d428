#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/support/Median.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

// How long many jobs take from one process: beside as many runs of lp, and five times as many into
// a class beside the same of one.

namespace {

using namespace cardpanels;

constexpr int kRuns = 3;
constexpr int kJobs = 200;
constexpr int kMoreJobs = 1000;
constexpr int kQueues = 10;
constexpr double kBesideLp = 0.15;
constexpr double kPerJob = 1.1;  // no slower but for the noise

double secondsOf(const std::string& command) {
  const auto start = std::chrono::steady_clock::now();
  const test::Finished finished = test::runCommand(command);
  if (finished.status != 0) throw std::runtime_error(command + ": " + finished.errors);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

std::string cardprint(const std::string& queue, const std::string& files) {
  return CARDPANELS_BUILD_DIR "/bin/cardprint --no-dialog --each -s -d " + queue +
         " -o cardLaminate=Both " + files;
}

bool tell(const char* what, const std::vector<double>& ratios, double bound) {
  const double ratio = bench::median(ratios);
  std::printf("ratio %s: %.2f (at most %.2f)\n", what, ratio, bound);
  return ratio <= bound;
}

int run() {
  test::PrivatePrintServer server;
  const std::string ppd = test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd");
  std::vector<std::string> queues;
  for (int i = 0; i < kQueues; ++i) {
    queues.push_back("card" + std::to_string(i));
    server.addQueue(queues.back(), ppd);
  }
  server.addClass("cards", queues);
  const test::TemporaryFolder folder;
  for (int i = 0; i < kMoreJobs; ++i)
    folder.write("badge" + std::to_string(i) + ".txt", "Ada Lovelace\n");
  const auto first = [&](int count) {
    return "$(seq -f " + (folder.path() / "badge%g.txt").string() + " 0 " +
           std::to_string(count - 1) + ")";
  };
  const std::string lps = "for file in " + first(kJobs) +
                          "; do lp -s -d card0 -o cardLaminate=Both $file || exit 1; done";
  std::vector<double> besideLp;
  std::vector<double> perJob;
  for (int i = 0; i < kRuns; ++i) {
    const double base = secondsOf(lps);
    besideLp.push_back(secondsOf(cardprint("card0", first(kJobs))) / base);
    const double few = secondsOf(cardprint("cards", first(kJobs))) / kJobs;
    perJob.push_back(secondsOf(cardprint("cards", first(kMoreJobs))) / kMoreJobs / few);
    test::runCommand("cancel -a -x");
  }
  const bool isFast = tell("200 files by --each / 200 runs of lp", besideLp, kBesideLp);
  const bool isEven = tell("a job of 1000 into a class / one of 200", perJob, kPerJob);
  return isFast && isEven ? 0 : 1;
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
