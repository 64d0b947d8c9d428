// Opens any bytes as a PPD file as cardprint does, makes the panels on it, and plays operations and
// change requests to them and to the job. What follows a zero byte chooses these.
#include <cups/cups.h>
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "dialog/AreaFaults.h"
#include "dialog/AreaWarnings.h"
#include "fuzz/Require.h"
#include "host/Error.h"
#include "host/LpArguments.h"
#include "host/PPDFile.h"
#include "host/PPDRecords.h"
#include "host/PanelHost.h"
#include "platform/Log.h"
#include "platform/Text.h"
#include "ports/headless/HeadlessBundle.h"

namespace {

using namespace cardpanels;
using fuzz::require;

const std::string kBundle = CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle";
constexpr int kMostCommands = 100;

struct NoSink final : platform::LogSink {
  void writeLine(std::string_view /*line*/) override {}
};

double processorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// Does `step`, which must not take a second.
template <typename Step>
void quickly(const std::string& name, Step step) {
  const double start = processorSeconds();
  step();
  require(processorSeconds() - start < 1, name + " takes less than a second");
}

/// The file that the bytes stand in, gone at the end.
class PPDOnDisk {
 public:
  PPDOnDisk() : path_(std::filesystem::temp_directory_path() / "cardpanels-fuzz-XXXXXX") {
    require(mkdtemp(path_.data()) != nullptr, "there is a folder for the file");
  }
  ~PPDOnDisk() { std::filesystem::remove_all(path_); }
  PPDOnDisk(const PPDOnDisk&) = delete;
  PPDOnDisk& operator=(const PPDOnDisk&) = delete;

  std::string with(std::string_view bytes) const {
    std::string path = path_ + "/fuzzed.ppd";
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
  }

 private:
  std::string path_;
};

/// What the shell makes of the arguments of lp.
std::vector<std::string> shellWords(std::string_view line) {
  std::vector<std::string> words;
  for (bool isNew = true; !line.empty(); line.remove_prefix(1)) {
    if (line[0] == ' ') {
      isNew = true;
      continue;
    }
    if (isNew) words.emplace_back();
    isNew = false;
    if (line[0] == '\'') {
      const std::size_t end = line.find('\'', 1);
      require(end != std::string_view::npos, "a quote of the shell ends");
      words.back() += line.substr(1, end - 1);
      line.remove_prefix(end);
    } else {
      if (line[0] == '\\') line.remove_prefix(1);
      words.back() += line[0];
    }
  }
  return words;
}

void requireParsesBack(const std::vector<host::Option>& options) {
  const std::string line = host::lpArguments(options);
  require(line.find_first_of("\r\n") == std::string::npos, "the options stand on one line");
  const auto words = shellWords(line);
  require(words.size() == 2 * options.size(), "each option is two words: " + line);
  for (std::size_t i = 0; i < options.size(); ++i) {
    require(words[2 * i] == "-o", "each option is one of lp");
    const auto parsed = host::OptionList::parsed(words[2 * i + 1]).options();
    require(parsed == std::vector{options[i]}, "an option parses back: " + words[2 * i + 1]);
  }
}

void requireConsistent(const host::JobOptions& job) {
  std::set<std::string> marked;
  for (const auto* option : host::allOptions(job.ppd())) {
    const auto choices = host::choicesOf(*option);
    const auto count = std::count_if(choices.begin(), choices.end(),
                                     [](const auto& each) { return each.marked != 0; });
    require(count <= 1, std::string("one choice of an option is marked: ") + option->keyword);
    const auto* const found = ppdFindMarkedChoice(job.ppd(), option->keyword);
    require((count == 1) == (found != nullptr) && (count == 0 || found->marked != 0),
            std::string("libcups finds the mark: ") + option->keyword);
  }
}

/// The operations on one job, chosen by `data`.
class Play {
 public:
  Play(host::PanelHost& host, FuzzedDataProvider& data) : host_(host), data_(data) {
    for (const auto* option : host::allOptions(host.job().ppd())) options_.push_back(option);
  }

  void command() {
    switch (data_.ConsumeIntegralInRange(0, 8)) {
      case 0: return onPanel([this](const auto& panel) { host_.show(panel); });
      case 1: return onPanel([this](const auto& panel) { host_.hide(panel); });
      case 2: return onPanel([this](const auto& panel) { host_.storeTyped(panel); });
      case 3: return host_.reset();
      case 4: return host_.print();
      case 5: host_.insist(key(), value()); return;
      case 6: host_.job().requestAll({{key(), value()}, {key(), value()}}); return;
      case 7: host_.job().markSaved({{key(), value()}, {"media", value()}}); return;
      default: host_.change(key(), value());
    }
  }

  /// Every option once, and every panel.
  void sweep() {
    for (const auto& panel : host_.panels()) {
      host_.view(panel);
      host_.show(panel);
    }
    for (const auto* option : options_) {
      for (const auto& choice : host::choicesOf(*option)) names_.emplace_back(choice.choice);
      for (const std::string& name : names_) host_.change(option->keyword, name);
      host_.change(option->keyword, "1in 1in 2in 2in");
      host_.change(option->keyword, "Custom.1in 1in 2in 2in");
      names_.clear();
    }
    host_.print();
  }

 private:
  template <typename List>
  const auto& one(const List& list) {
    return list[data_.ConsumeIntegralInRange<std::size_t>(0, list.size() - 1)];
  }

  template <typename Action>
  void onPanel(Action action) {
    if (!host_.panels().empty()) action(one(host_.panels()));
  }

  std::string key() {
    if (data_.ConsumeIntegralInRange(0, 9) == 0) return data_.ConsumeRandomLengthString(50);
    chosen_ = one(options_);
    return chosen_->keyword;
  }

  std::string value() {
    const int kind = data_.ConsumeIntegralInRange(0, 3);
    if (kind == 0) return data_.ConsumeRandomLengthString(100);
    const std::string name = chosen_ == nullptr ? "" : one(host::choicesOf(*chosen_)).choice;
    return kind == 1 ? "Custom." + name : name;
  }

  host::PanelHost& host_;
  FuzzedDataProvider& data_;
  std::vector<const ppd_option_t*> options_;
  const ppd_option_t* chosen_ = nullptr;
  std::vector<std::string> names_;
};

void requireSound(host::PanelHost& host) {
  quickly("judging the job", [&] {
    requireConsistent(host.job());
    requireParsesBack(host.job().options());
    host.job().conflicts();
    dialog::areaFaults(host.job());
    dialog::areaWarnings(host.job());
    for (const auto& panel : host.panels()) host.summary(panel);
  });
}

void play(host::PPDFile ppd, FuzzedDataProvider& data) {
  host::JobOptions job(std::move(ppd));
  requireConsistent(job);
  const auto bundle = std::make_shared<headless::HeadlessBundle>(kBundle);
  host::PanelHost host(kBundle, bundle, job);
  Play play(host, data);
  if (data.remaining_bytes() == 0) quickly("every choice once", [&] { play.sweep(); });
  requireSound(host);
  for (int count = 0; count < kMostCommands && data.remaining_bytes() > 0; ++count) {
    quickly("a command", [&] { play.command(); });
    requireSound(host);
  }
}

}  // namespace

/// What libcups itself loses of PPDs with statements that stand twice. Tests look for PPDs that we
/// do not close.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the sanitizer's name
extern "C" const char* __lsan_default_suppressions() { return "leak:^_ppdOpen$\n"; }

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  platform::setLogSink(std::make_shared<NoSink>());
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const PPDOnDisk file;
  const std::string_view all(reinterpret_cast<const char*>(data), size);
  const std::string_view bytes = all.substr(0, all.find('\0'));
  FuzzedDataProvider commands(data + bytes.size(), size - bytes.size());
  if (commands.remaining_bytes() > 0) commands.ConsumeBytes<char>(1);
  host::PPDFile ppd;
  quickly("opening", [&] {
    try {
      ppd = host::openPPD(file.with(bytes));
    } catch (const host::Error& error) {
      require(platform::onOneLine(error.what()) == error.what(), "an error is one line of UTF-8");
    }
  });
  if (ppd) play(std::move(ppd), commands);
  return 0;
}
