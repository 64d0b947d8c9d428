#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <cstdio>
#include <memory>

#include "bench/support/Ratios.h"
#include "host/HostCallback.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PlugInLibrary.h"
#include "platform/Log.h"
#include "ports/headless/HeadlessBundle.h"

namespace {

using namespace cardpanels;

const std::string kBundle = CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle";
const std::string kPPD = CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd";

/// The factory making every panel that it has, with the trace in a file.
void createPanels(benchmark::State& state) {
  std::FILE* log = std::tmpfile();
  const auto before = platform::setLogSink(platform::fileDescriptorSink(fileno(log)));
  host::JobOptions job(host::openPPD(kPPD));
  const auto callback = std::make_shared<host::ConstrainingHostCallback>(job);
  const auto plugIn = host::loadPlugIn(kBundle);
  plugIn->initWithBundle(std::make_shared<headless::HeadlessBundle>(kBundle));
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        plugIn->PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, callback));
  }
  platform::setLogSink(before);
  std::fclose(log);
}
BENCHMARK(createPanels);

void ppdOpenFile(benchmark::State& state) {
  for (auto _ : state) ppdClose(::ppdOpenFile(kPPD.c_str()));
}
BENCHMARK(ppdOpenFile);

}  // namespace

int main(int argc, char** argv) {
  return bench::runWithRatios(argc, argv, {{"createPanels", "ppdOpenFile", 0.05}});
}
