#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench/support/LogFile.h"
#include "bench/support/Ratios.h"
#include "platform/Log.h"
#include "plugin/log/PDELogging.h"

namespace {

using cardpanels::platform::Object;

struct Panel final : Object {
  std::string_view className() const override { return "ThermalLaminatePDE"; }
};

const std::string kKey = "cardLaminate";
const std::string kChoice = "Front";

void traceLine(benchmark::State& state) {
  const cardpanels::bench::LogFile file;
  const auto before =
      cardpanels::platform::setLogSink(cardpanels::platform::fileDescriptorSink(file.descriptor()));
  const Panel panel;
  for (auto _ : state) cardpanels::_PDELog(&panel, "new choice is %@/%@", kKey, kChoice);
  cardpanels::platform::setLogSink(before);
}
BENCHMARK(traceLine);

/// Composing the format, filling it, and writing the same bytes, without any typing or escaping.
void twoSnprintfAndAWrite(benchmark::State& state) {
  const cardpanels::bench::LogFile file;
  const Panel panel;
  const std::string description = panel.description();
  for (auto _ : state) {
    std::array<char, 256> format{};
    std::array<char, 256> line{};
    std::snprintf(format.data(), format.size(),
                  "2026-11-21 05:08:21.070 bench-trace[%i] %*.*s%s self(%s) %s\n", 12345, 0, 0, " ",
                  "LOG", description.c_str(), "new choice is %s/%s");
    // The composed text is the format, as in the trace log.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    const int length =
        std::snprintf(line.data(), line.size(), format.data(), kKey.c_str(), kChoice.c_str());
#pragma GCC diagnostic pop
    if (write(file.descriptor(), line.data(), static_cast<std::size_t>(length)) != length)
      std::abort();
  }
}
BENCHMARK(twoSnprintfAndAWrite);

}  // namespace

int main(int argc, char** argv) {
  return cardpanels::bench::runWithRatios(argc, argv, {{"traceLine", "twoSnprintfAndAWrite", 1.1}});
}
