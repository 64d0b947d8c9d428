#include "apps/cardprint/CardJob.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <utility>

#include "apps/cardprint/Layout.h"
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
      files_(before == nullptr ? arguments.files : before->files_),
      input_(before == nullptr ? nullptr : before->input_),
      queue_(printer.queue),
      printerName_(printer.name),
      ppdText_(std::move(printer.ppdText)),
      serverOptions_(std::move(printer.serverOptions)),
      basis_(windows == nullptr ? printer.basis : std::nullopt),
      savedAttributes_(printer.basis ? printer.basis->options : std::vector<host::Option>()),
      options_(std::move(printer.ppd)),
      leftOut_(markedFirst(printer, before)),
      chosen_(before == nullptr ? chosen(arguments.options) : before->chosen_),
      panels_(host::defaultBundlePath(), bundle(), options_) {}

std::shared_ptr<platform::Bundle> CardJob::bundle() {
  const std::string path = host::defaultBundlePath();
  if (windows_ == nullptr) return std::make_shared<dialog::TextBundle>(path);
  return windows_->bundle(path, options_);
}

/// Marks what is saved, or what `before` had chosen, and answers what was left out.
std::vector<std::string> CardJob::markedFirst(const Printer& printer, const CardJob* before) {
  std::vector<std::string> leftOut;
  if (!printer.differences.empty()) leftOut.push_back(printer.differences);
  const auto mark = [&](const std::vector<host::Option>& options) {
    for (std::string& each : options_.markSaved(options)) leftOut.push_back(std::move(each));
  };
  if (before == nullptr) {
    mark(printer.savedOptions);
    return leftOut;
  }
  const auto chosen = before->options_.options();
  const host::OptionList chosenKeys(chosen);
  std::vector<host::Option> others;
  std::copy_if(printer.savedOptions.begin(), printer.savedOptions.end(), std::back_inserter(others),
               [&](const host::Option& each) { return !chosenKeys.value(each.key); });
  mark(others);
  for (std::string& each : options_.markChosen(chosen)) leftOut.push_back(std::move(each));
  return leftOut;
}

ChosenOptions CardJob::chosen(const std::vector<host::Option>& options) {
  AttributeKeys keys(queue_.queue, waiter_);
  return choose(options_, options, keys);
}

void CardJob::usePreset(const std::string& name) {
  // Which may have been those of the instance before.
  setAttribute({kCopies, attribute(kCopies).value_or("1")});
  queue_.instance = name;
}

PrintedFile CardJob::firstFile() const {
  const bool isFile = hasFiles() && files_.front() != kStandardInput;
  return {isFile ? files_.front() : "", chosen_.attributes};
}

std::string CardJob::send() {
  if (!hasFiles()) return summary() + optionsLine() + "\n";
  const std::string text = isSilent_ ? "" : summary();
  const std::string line = requestLine();
  return isSilent_ ? "" : text + line;
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
  host::Submission job = submission(isInput ? kStandardInputName : files_.front());
  if (!isInput) job.files = files_;
  job.options = options_.options();
  job.ppdText = ppdText_;
  job.basis = basis_;
  job.document = input_;
  ids_.push_back(waitedFor<int>(waiter_, _("Sending the job…"), [job](const host::Terms& terms) {
    return host::submitJob(job, terms);
  }));
  return requestLine(ids_.back(), job.files.size());
}

std::string CardJob::requestLine(int id, std::size_t files) const {
  return "request id is " + queue_.queue + "-" + std::to_string(id) + " (" + std::to_string(files) +
         " file(s))\n";
}

host::Submission CardJob::submission(const std::string& name) const {
  return {.queue = queue_,
          .title = chosen_.title.value_or(std::filesystem::path(name).filename().string()),
          .files = {},
          .options = {},
          .attributes = chosen_.attributes};
}

std::vector<host::Submission> CardJob::submissions() const {
  std::vector<host::Submission> all;
  const auto options = options_.options();  // once: there may be many files
  for (const std::string& file : files_) {
    all.push_back(submission(file));
    all.back().files = {file};
    all.back().options = options;
  }
  return all;
}

std::string CardJob::sent(const std::vector<int>& ids) {
  ids_.insert(ids_.end(), ids.begin(), ids.end());
  if (isSilent_) return "";
  std::string text = summary();
  for (const int id : ids) text += requestLine(id, 1);
  return text;
}

platform::Text CardJob::attribute(const std::string& key) const {
  const auto own = host::OptionList(chosen_.attributes).value(key);
  return own ? own : savedAttributes_.value(key);
}

void CardJob::setAttribute(const host::Option& attribute) {
  host::OptionList attributes(chosen_.attributes);
  if (attribute.value.empty()) {
    attributes.remove(attribute.key);
  } else {
    attributes.set(attribute);
  }
  chosen_.attributes = attributes.options();
}

}  // namespace cardpanels::cardprint
