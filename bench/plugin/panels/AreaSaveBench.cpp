#include <benchmark/benchmark.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/support/LogFile.h"
#include "bench/support/Ratios.h"
#include "host/HostCallback.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "platform/Log.h"
#include "plugin/panels/PeelOffPDE.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"

namespace {

using namespace cardpanels;

/// Keeps the lines as they would be written, prefix included.
struct Lines final : platform::LogSink {
  void writeLine(std::string_view line) override {
    all.push_back("2026-11-21 05:08:21.070 bench-areas[12345] " + std::string(line) + "\n");
  }
  std::vector<std::string> all;
};

/// The peel-off panel with twelve typed areas.
class Panel {
 public:
  Panel() {
    panel_->panelView();
    panel_->willShow();
    for (const platform::Outlet& outlet : panel_->outlets()) {
      const auto field = std::dynamic_pointer_cast<platform::TextField>(outlet.view(*panel_));
      if (field) field->setStringValue("1.25in");
    }
    save();
  }

  void save() { panel_->savePeelOffAreasToSettings(); }

 private:
  host::JobOptions job_{host::openPPD(test::duplexPPD())};
  std::shared_ptr<PeelOffPanelPDE> panel_ = PeelOffPanelPDE::initWithCallback_andBundle(
      std::make_shared<host::ConstrainingHostCallback>(job_),
      std::make_shared<headless::HeadlessBundle>(test::builtBundle()));
};

void saveTwelveAreas(benchmark::State& state) {
  const bench::LogFile file;
  const auto before = platform::setLogSink(platform::fileDescriptorSink(file.descriptor()));
  Panel panel;
  for (auto _ : state) {
    file.startOver();
    panel.save();
  }
  platform::setLogSink(before);
}
BENCHMARK(saveTwelveAreas);

void snprintfAndWriteItsLines(benchmark::State& state) {
  const bench::LogFile file;
  const auto lines = std::make_shared<Lines>();
  const auto before = platform::setLogSink(lines);
  Panel panel;
  lines->all.clear();
  panel.save();
  platform::setLogSink(before);
  for (auto _ : state) {
    file.startOver();
    for (const std::string& line : lines->all) {
      std::array<char, 1024> text{};
      const int length = std::snprintf(text.data(), text.size(), "%s", line.c_str());
      if (write(file.descriptor(), text.data(), static_cast<std::size_t>(length)) != length) {
        std::abort();
      }
    }
  }
}
BENCHMARK(snprintfAndWriteItsLines);

}  // namespace

int main(int argc, char** argv) {
  return bench::runWithRatios(argc, argv, {{"saveTwelveAreas", "snprintfAndWriteItsLines", 1.5}});
}
