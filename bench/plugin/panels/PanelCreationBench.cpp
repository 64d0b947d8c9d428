#include <benchmark/benchmark.h>
#include <cups/ppd.h>

#include <memory>

#include "bench/support/LogFile.h"
#include "bench/support/Ratios.h"
#include "host/HostCallback.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PlugInLibrary.h"
#include "platform/Log.h"
#include "plugin/panels/ThermalLaminatePDE.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"

namespace {

using namespace cardpanels;

/// The job's host, with the trace in a file.
class Dialog {
 public:
  Dialog() : before_(platform::setLogSink(platform::fileDescriptorSink(log_.descriptor()))) {}
  ~Dialog() { platform::setLogSink(before_); }
  Dialog(const Dialog&) = delete;
  Dialog& operator=(const Dialog&) = delete;

  host::JobOptions job{host::openPPD(test::duplexPPD())};
  std::shared_ptr<host::HostCallback> callback =
      std::make_shared<host::ConstrainingHostCallback>(job);
  std::shared_ptr<platform::Bundle> bundle =
      std::make_shared<headless::HeadlessBundle>(test::builtBundle());

 private:
  bench::LogFile log_;
  std::shared_ptr<platform::LogSink> before_;
};

void createLaminatePanel(benchmark::State& state) {
  const Dialog dialog;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        ThermalLaminatePDE::initWithCallback_andBundle(dialog.callback, dialog.bundle));
  }
}
BENCHMARK(createLaminatePanel);

/// The plug-in making every panel that it has.
void createPanels(benchmark::State& state) {
  const Dialog dialog;
  const auto plugIn = host::loadPlugIn(test::builtBundle());
  plugIn->initWithBundle(dialog.bundle);
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        plugIn->PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, dialog.callback));
  }
}
BENCHMARK(createPanels);

void ppdOpenFile(benchmark::State& state) {
  for (auto _ : state) ppdClose(::ppdOpenFile(test::duplexPPD().c_str()));
}
BENCHMARK(ppdOpenFile);

}  // namespace

int main(int argc, char** argv) {
  return bench::runWithRatios(
      argc, argv,
      {{"createLaminatePanel", "ppdOpenFile", 0.05}, {"createPanels", "ppdOpenFile", 0.10}});
}
