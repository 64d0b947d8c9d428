#include "apps/cardprint/CardJob.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <utility>

#include "apps/cardprint/StandardInput.h"
#include "dialog/TextBundle.h"
#include "host/Error.h"
#include "host/LpArguments.h"
#include "host/PlugInLibrary.h"
#include "host/Submission.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {

using platform::_;

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
      isSilent_(arguments.silent),
      files_(arguments.files),
      input_(before == nullptr ? nullptr : before->input_),
      queue_(printer.queue),
      printerName_(printer.name),
      ppdText_(std::move(printer.ppdText)),
      basis_(windows == nullptr ? std::move(printer.basis) : std::nullopt),
      options_(std::move(printer.ppd)),
      leftOut_(markedFirst(printer.savedOptions, before)),
      chosen_(before == nullptr ? chosen(arguments.options) : before->chosen_),
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

ChosenOptions CardJob::chosen(const std::vector<host::Option>& options) {
  AttributeKeys keys(queue_.queue, waiter_);
  return choose(options_, options, keys);
}

PrintedFile CardJob::firstFile() const {
  const bool isFile = hasFiles() && files_.front() != kStandardInput;
  return {isFile ? files_.front() : "", chosen_.attributes};
}

std::string CardJob::send() {
  if (!hasFiles()) return summary() + optionsLine() + "\n";
  const std::string text = isSilent_ ? "" : summary();
  const std::string line = requestLine();
  return isSilent_ ? "" : text + line + "\n";
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

std::string CardJob::optionsLine() const {
  std::vector<host::Option> all = options_.options();
  all.insert(all.end(), chosen_.attributes.begin(), chosen_.attributes.end());
  return host::lpArguments(all);
}

std::string CardJob::requestLine() {
  const bool isInput = files_.front() == kStandardInput;
  if (isInput && !input_) {
    input_ = waitedFor<std::shared_ptr<const std::string>>(
        waiter_, _("Reading standard input…"), [](const host::Terms& /*terms*/) {
          return std::make_shared<const std::string>(readStandardInput());
        });
  }
  const auto files = isInput ? std::vector<std::string>() : files_;
  const std::string name =
      isInput ? kStandardInputName : std::filesystem::path(files.front()).filename().string();
  const host::Submission submission{.queue = queue_,
                                    .title = chosen_.title.value_or(name),
                                    .files = files,
                                    .options = options_.options(),
                                    .ppdText = ppdText_,
                                    .basis = basis_,
                                    .attributes = chosen_.attributes,
                                    .document = input_};
  id_ = waitedFor<int>(waiter_, _("Sending the job…"), [submission](const host::Terms& terms) {
    return host::submitJob(submission, terms);
  });
  return "request id is " + queue_.queue + "-" + std::to_string(id_) + " (" +
         std::to_string(files.size()) + " file(s))";
}

}  // namespace cardpanels::cardprint
