#include <benchmark/benchmark.h>
#include <cups/ppd.h>
#include <malloc.h>

#include <cstdio>
#include <memory>
#include <vector>

#include "bench/support/Ratios.h"
#include "platform/Log.h"
#include "plugin/choices/Utility.h"
#include "ports/headless/Controls.h"

namespace {

using namespace cardpanels;

/// An option's record with `count` choices.
class OptionRecord {
 public:
  explicit OptionRecord(int count) : choices_(static_cast<std::size_t>(count)) {
    option_.num_choices = count;
    option_.choices = choices_.data();
    for (int i = 0; i < count; ++i) {
      ppd_choice_t& choice = choices_[static_cast<std::size_t>(i)];
      choice.option = &option_;
      std::snprintf(choice.choice, sizeof choice.choice, "Choice%05d", i);
      std::snprintf(choice.text, sizeof choice.text, "Choice %05d", i);
    }
  }
  OptionRecord(const OptionRecord&) = delete;
  OptionRecord& operator=(const OptionRecord&) = delete;

  ppd_option_t* get() { return &option_; }

 private:
  ppd_option_t option_{};
  std::vector<ppd_choice_t> choices_;
};

/// The choice list of an option and its pop-up; the time is that of one choice.
void fillPopUp(benchmark::State& state, int count) {
  constexpr int kChoicesAnIteration = 10000;
  OptionRecord option(count);
  for (auto _ : state) {
    for (int done = 0; done < kChoicesAnIteration; done += count) {
      const auto popUp = std::make_shared<headless::PopUpButton>();
      InitPopUpFromArray(popUp, ArrayFromPPDOption(option.get()));
      benchmark::DoNotOptimize(popUp);
    }
  }
  state.SetItemsProcessed(state.iterations() * kChoicesAnIteration);
}

void fillPopUpOf10(benchmark::State& state) { fillPopUp(state, 10); }
BENCHMARK(fillPopUpOf10);
void fillPopUpOf100(benchmark::State& state) { fillPopUp(state, 100); }
BENCHMARK(fillPopUpOf100);
void fillPopUpOf1000(benchmark::State& state) { fillPopUp(state, 1000); }
BENCHMARK(fillPopUpOf1000);
void fillPopUpOf10000(benchmark::State& state) { fillPopUp(state, 10000); }
BENCHMARK(fillPopUpOf10000);

}  // namespace

int main(int argc, char** argv) {
  // What is measured is the work, not the kernel handing out the same pages over and over.
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  return bench::runWithRatios(argc, argv,
                              {{"fillPopUpOf100", "fillPopUpOf10", 1.2},
                               {"fillPopUpOf1000", "fillPopUpOf10", 1.2},
                               {"fillPopUpOf10000", "fillPopUpOf10", 1.2}});
}
