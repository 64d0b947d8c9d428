#include <csignal>

// In builds that count branches each program and library has this: a program that its test ends
// with SIGTERM writes down what was counted, as one that ends by itself does.

extern "C" void __gcov_dump();  // NOLINT(bugprone-reserved-identifier): libgcov has it

namespace {

struct sigaction before = {};

/// Each library has counts of its own, and its own of these: one passes on to the next.
void dumpCounts(int signal) {
  __gcov_dump();
  sigaction(signal, &before, nullptr);
  raise(signal);
}

[[gnu::constructor]] void dumpCountsAtTerm() {
  struct sigaction dumping = {};
  dumping.sa_handler = dumpCounts;
  sigaction(SIGTERM, &dumping, &before);
}

}  // namespace
