#include "apps/cardprint/CardJob.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <utility>

#include "dialog/AreaFaults.h"
#include "dialog/AreaWarnings.h"
#include "dialog/PageTexts.h"
#include "dialog/TextBundle.h"
#include "host/Error.h"
#include "host/LpArguments.h"
#include "host/PlugInLibrary.h"
#include "host/Submission.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {

using platform::_;

struct CardJob::Printer {
  std::string name;
  host::QueueName queue;
  std::vector<host::Option> savedOptions;
  host::PPDFile ppd;
  platform::Text ppdText;
  std::optional<host::JobBasis> basis;
};

CardJob::Printer CardJob::openPrinter(const Arguments& arguments, const host::Terms& terms) {
  if (arguments.ppd.empty()) {
    auto queue = host::openQueue(arguments.queue, terms);
    return {queue.name.text(),
            queue.name,
            std::move(queue.savedOptions),
            std::move(queue.ppd),
            std::move(queue.ppdText),
            std::move(queue.basis)};
  }
  auto ppd = host::openPPD(arguments.ppd);
  std::string name = ppd->nickname != nullptr
                         ? ppd->nickname
                         : std::filesystem::path(arguments.ppd).filename().string();
  return {platform::onOneLine(std::move(name)), {}, {}, std::move(ppd), std::nullopt, std::nullopt};
}

CardJob::Printer CardJob::openedPrinter(const Arguments& arguments, Waiter& waiter) {
  return waitedFor<Printer>(
      waiter, _("Reading the printer's options…"),
      [arguments](const host::Terms& terms) { return openPrinter(arguments, terms); });
}

CardJob::CardJob(const Arguments& arguments, Waiter& waiter)
    : CardJob(arguments, waiter, nullptr, openedPrinter(arguments, waiter), nullptr) {}

CardJob::CardJob(const Arguments& arguments, Windows& windows)
    : CardJob(arguments, windows.waiter(), &windows, openedPrinter(arguments, windows.waiter()),
              nullptr) {}

CardJob::CardJob(const Arguments& arguments, const CardJob& before)
    : CardJob(arguments, before.waiter_, before.windows_, openedPrinter(arguments, before.waiter_),
              &before) {}

CardJob::CardJob(const Arguments& arguments, Waiter& waiter, Windows* windows, Printer&& printer,
                 const CardJob* before)
    : waiter_(waiter),
      windows_(windows),
      files_(arguments.files),
      queue_(printer.queue),
      printerName_(printer.name),
      ppdText_(std::move(printer.ppdText)),
      basis_(windows == nullptr ? std::move(printer.basis) : std::nullopt),
      options_(std::move(printer.ppd)),
      leftOut_(markedFirst(printer.savedOptions, before)),
      notice_(before == nullptr ? chosen(arguments.options) : ""),
      panels_(host::defaultBundlePath(), bundle(), options_) {}

std::shared_ptr<platform::Bundle> CardJob::bundle() {
  const std::string path = host::defaultBundlePath();
  if (windows_ == nullptr) return std::make_shared<dialog::TextBundle>(path);
  return windows_->bundle(path, options_);
}

/// Marks what is saved, or what `before` had chosen, and answers what was left out.
std::vector<std::string> CardJob::markedFirst(const std::vector<host::Option>& saved,
                                              const CardJob* before) {
  if (before == nullptr) return options_.markSaved(saved);
  const auto chosen = before->options_.options();
  const host::OptionList chosenKeys(chosen);
  std::vector<host::Option> others;
  std::copy_if(saved.begin(), saved.end(), std::back_inserter(others),
               [&](const host::Option& each) { return !chosenKeys.value(each.key); });
  auto leftOut = options_.markSaved(others);
  for (std::string& each : options_.markChosen(chosen)) leftOut.push_back(std::move(each));
  return leftOut;
}

/// Chooses `options`, and answers what has changed besides.
std::string CardJob::chosen(const std::vector<host::Option>& options) {
  for (const host::Option& each : options) {
    try {
      options_.check(each);
    } catch (const host::Error& error) {
      throw host::Error("-o " + each.key + "=" + each.value + ": " + error.what());
    }
  }
  host::ChangeResult result = options_.requestAll(options);
  if (!result.granted) throw host::Error(result.message);
  for (const host::Option& each : options) {
    const std::string fault = dialog::areaFault(options_, each.key);
    if (!fault.empty()) throw host::Error("-o " + each.key + "=" + each.value + ": " + fault);
  }
  return std::move(result.message);
}

std::vector<std::string> CardJob::judged() const {
  const auto conflicts = options_.conflicts();
  if (!conflicts.empty()) {
    throw host::Error(
        platform::filled(platform::_("Options of this job exclude each other: {conflicts}"),
                         {{"conflicts", dialog::joined(conflicts, " ")}}));
  }
  const auto faults = dialog::areaFaults(options_);
  if (!faults.empty()) throw host::Error(dialog::joined(faults, " "));
  std::vector<std::string> warnings;
  for (dialog::AreaWarning& each : dialog::areaWarnings(options_)) {
    warnings.push_back(std::move(each.sentence));
  }
  return warnings;
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
  const host::Submission submission{queue_, title, files_, options_.options(), ppdText_, basis_};
  const int id = waitedFor<int>(
      waiter_, _("Sending the job…"),
      [submission](const host::Terms& terms) { return host::submitJob(submission, terms); });
  return "request id is " + queue_.queue + "-" + std::to_string(id) + " (" +
         std::to_string(files_.size()) + " file(s))";
}

}  // namespace cardpanels::cardprint
