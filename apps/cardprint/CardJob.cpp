#include "apps/cardprint/CardJob.h"

#include <filesystem>
#include <memory>
#include <utility>

#include "host/Error.h"
#include "host/PlugInLibrary.h"
#include "ports/gtk3/GtkBundle.h"

namespace cardpanels::cardprint {

struct CardJob::Printer {
  std::string name;
  host::QueueName queue;
  std::vector<host::Option> savedOptions;
  host::PPDFile ppd;
};

CardJob::Printer CardJob::openPrinter(const Arguments& arguments) {
  if (arguments.ppd.empty()) {
    auto queue = host::openQueue(arguments.queue);
    return {queue.name.text(), queue.name, std::move(queue.savedOptions), std::move(queue.ppd)};
  }
  auto ppd = host::openPPD(arguments.ppd);
  const std::string name = ppd->nickname != nullptr
                               ? ppd->nickname
                               : std::filesystem::path(arguments.ppd).filename().string();
  return {name, {}, {}, std::move(ppd)};
}

CardJob::CardJob(const Arguments& arguments) : CardJob(arguments, openPrinter(arguments)) {}

CardJob::CardJob(const Arguments& arguments, Printer&& printer)
    : files_(arguments.files),
      queue_(printer.queue),
      printerName_(printer.name),
      options_(std::move(printer.ppd)),
      notices_(options_.markSaved(printer.savedOptions)),
      panels_(host::defaultBundlePath(),
              std::make_shared<gtk3::GtkBundle>(host::defaultBundlePath()), options_) {
  for (const host::Option& option : arguments.options) choose(option);
}

void CardJob::choose(const host::Option& option) {
  const host::ChangeResult result = panels_.change(option.key, option.value);
  if (!result.granted) {
    throw host::Error("-o " + option.key + "=" + option.value + ": " + result.message);
  }
  if (!result.message.empty()) notices_.push_back(result.message);
}

std::string CardJob::send() {
  const std::string text = summary();
  return text + lastLine() + "\n";
}

std::string CardJob::summary() {
  std::string text;
  for (const auto& panel : panels_.panels()) {
    const auto entries = panels_.summary(panel);
    if (!entries || entries->empty()) continue;
    text += panel->panelName().value_or("") + "\n";
    for (const auto& [title, value] : *entries) {
      text += "    " + platform::onOneLine(title) + ": " + platform::onOneLine(value) + "\n";
    }
  }
  return text;
}

std::string CardJob::lastLine() {
  if (files_.empty()) return host::lpArguments(options_.options());
  const std::string title = std::filesystem::path(files_.front()).filename().string();
  const int id = host::submitJob(queue_, title, files_, options_.options());
  return "request id is " + queue_.queue + "-" + std::to_string(id) + " (" +
         std::to_string(files_.size()) + " file(s))";
}

}  // namespace cardpanels::cardprint
