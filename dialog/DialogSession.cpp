#include "dialog/DialogSession.h"

#include <algorithm>
#include <utility>

#include "dialog/PrinterStateText.h"
#include "host/Error.h"
#include "host/MediaOption.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using host::kPageSize;
using host::Option;
using platform::_;

const Option* find(const std::vector<Option>& options, const std::string& key) {
  const auto found = std::find_if(options.begin(), options.end(), [&key](const Option& each) {
    return platform::equalIgnoringCase(each.key, key);
  });
  return found == options.end() ? nullptr : &*found;
}

}  // namespace

DialogSession::DialogSession(PrintDialog& dialog, ReadQueue readQueue, WatchState watchState,
                             MakePanels makePanels, WorkOnPresets presets)
    : dialog_(dialog),
      readQueue_(std::move(readQueue)),
      watchState_(std::move(watchState)),
      makePanels_(std::move(makePanels)),
      workOnPresets_(std::move(presets)) {}

DialogSession::~DialogSession() { leave(); }

void DialogSession::leave() {
  reading_.reset();
  if (panels_) panels_->setObserver(nullptr);
  dialog_.removePage();
  forget();
}

void DialogSession::forget() {
  watching_.reset();
  page_ = nullptr;
  panels_.reset();
  job_.reset();
  leftAlone_.clear();
  outcome_.clear();
  insisted_.reset();
  dialog_.showStatus({});
}

void DialogSession::selectPrinter(const std::string& queue) {
  leave();
  queue_ = queue;
  if (queue.empty()) return;
  dialog_.showText(_("Reading the printer's options…"));
  reading_ = readQueue_(queue, [this](QueueRead read) { queueRead(std::move(read)); });
}

void DialogSession::queueRead(QueueRead read) {
  try {
    if (!read.ppd) throw host::Error(read.error);
    startPanels(std::move(read));
  } catch (const std::exception& error) {
    if (panels_) panels_->setObserver(nullptr);
    dialog_.showText(error.what());
    forget();
  }
}

void DialogSession::startPanels(QueueRead read) {
  job_ = std::make_unique<host::JobOptions>(std::move(read.ppd));
  auto leftOut =
      read.isElsewhere ? bringOptionsElsewhere(read.savedOptions) : std::vector<std::string>();
  for (std::string& each : job_->markSaved(firstValues(read.savedOptions))) {
    leftOut.push_back(std::move(each));
  }
  job_->markSaved({{kPageSize, dialog_.pageSize()}});
  panels_ = makePanels_(*job_);
  if (panels_->panels().empty()) {
    leave();
    return;
  }
  for (const Option& each : differences()) {
    if (each.value.empty() || panels_->claimedKeys().contains(each.key)) continue;
    leftAlone_[each.key] = each.value;
  }
  panels_->setObserver(this);
  page_ = &dialog_.showPanels(*panels_);
  page_->setStatusChanged([this] { dialog_.showStatus(page_->status()); });
  dialog_.showStatus(page_->status());
  if (!read.differences.empty()) page_->keep(read.differences);
  for (const std::string& each : leftOut) page_->keep(each);
  tellCarriedOver(read.savedOptions);
  bringToDialog();
  offerPresets(std::move(read.serverOptions));
  watching_ = watchState_(
      queue_, [this](const StateRead& state) { page_->tellState(stateLine(state, job_->ppd())); });
}

void DialogSession::offerPresets(std::vector<Option> serverOptions) {
  page_->offerPresets({
      .queue = {queue_, ""},
      .serverOptions = std::move(serverOptions),
      .work = workOnPresets_,
      .copies = [this] { return dialog_.copies(); },
      .follow = [this](const std::string& copies) { bringPreset(copies); },
  });
}

/// What the dialog has controls of its own for; options are there already.
void DialogSession::bringPreset(const std::string& copies) {
  dialog_.setCopies(copies);
  if (!job_->hasOption(kPageSize)) return;
  const Option wanted{kPageSize, job_->marked(kPageSize).value_or("")};
  if (dialog_.pageSize() != wanted.value) dialog_.setPageSize(wanted.value);
  const Option kept{kPageSize, dialog_.pageSize()};
  if (kept.value == wanted.value) return;
  const auto chosen = job_->differingKeys();
  const bool isChosen = std::find(chosen.begin(), chosen.end(), kPageSize) != chosen.end();
  if (!isTyped(kept)) {
    job_->mark(kept.key, kept.value);
  } else if (!isChosen) {
    return;  // the program's own size is none that the preset is against
  }
  page_->keep(cannotBe(wanted));
}

/// What the printer's options in a dialog start with: what was saved where the dialog has lost it.
std::vector<Option> DialogSession::firstValues(const std::vector<Option>& saved) const {
  std::vector<Option> values;
  for (const Option& each : dialog_.options()) {
    if (!job_->hasOption(each.key)) continue;
    const Option* const first = each.value.empty() ? find(saved, each.key) : &each;
    if (first != nullptr) values.push_back(*first);
  }
  return values;
}

/// The dialog knows its own server's PPD of the printer only, and what is saved of its options.
/// Answers what is saved and cannot be.
std::vector<std::string> DialogSession::bringOptionsElsewhere(const std::vector<Option>& saved) {
  auto leftOut = job_->markSaved(saved);
  std::vector<Option> values;
  for (const ppd_option_t* each : host::allOptions(job_->ppd())) {
    const platform::Text value = job_->marked(each->keyword);
    if (value && !host::isPageSize(*each)) values.push_back({each->keyword, *value});
  }
  dialog_.addOptions(values);
  return leftOut;
}

/// A program's dialog starts with what was set at its last print, which another document may not
/// need.
void DialogSession::tellCarriedOver(const std::vector<Option>& saved) {
  std::string choices;
  for (const std::string& key : job_->differingKeys()) {
    const Option option{key, job_->marked(key).value_or("")};
    const bool isSaved = std::any_of(saved.begin(), saved.end(), [&](const Option& each) {
      return platform::equalIgnoringCase(each.key, option.key) && each.value == option.value;
    });
    if (isSaved || !panels_->claimedKeys().contains(key)) continue;
    if (!choices.empty()) choices += _(", ");
    choices += platform::filled(
        _("“{option}” is “{choice}”"),
        {{"option", job_->optionTitle(key)}, {"choice", job_->choiceTitle(key, option.value)}});
  }
  if (choices.empty()) return;
  page_->keep(platform::filled(_("Set from your last print: {choices}."), {{"choices", choices}}));
}

bool DialogSession::isMarked(const Option& option) const {
  const auto marked = job_->marked(option.key);
  return marked && (platform::equalIgnoringCase(*marked, option.value) ||
                    *marked == std::string(platform::kCustomPrefix) + option.value);
}

/// Whether the value is none that the PPD lists.
bool DialogSession::isTyped(const Option& option) const {
  ppd_option_t* const record = ppdFindOption(job_->ppd(), option.key.c_str());
  return ppdFindChoice(record, option.value.c_str()) == nullptr;
}

bool DialogSession::differs(const Option& option) const {
  if (!job_->hasOption(option.key)) return false;
  const auto left = leftAlone_.find(option.key);
  if (left != leftAlone_.end() && left->second == option.value) return false;
  return job_->marked(option.key) && !isMarked(option);
}

std::vector<Option> DialogSession::differences() const {
  std::vector<Option> all;
  for (const Option& each : dialog_.options()) {
    if (differs(each)) all.push_back(each);
  }
  return all;
}

void DialogSession::dialogChanged() {
  if (!panels_) return;
  following_ = true;
  const auto changes = differences();
  followPageSize();
  for (const Option& each : changes) follow(each);
  following_ = false;
  if (!outcome_.empty()) tellOutcome();
  optionsChanged();
}

void DialogSession::follow(const Option& option) {
  const auto result = panels_->change(option.key, option.value);
  const bool claimed = panels_->claimedKeys().contains(option.key);
  if (!result.granted && !claimed && isTyped(option)) leftAlone_[option.key] = option.value;
}

/// The dialog's page size cannot be set back, so a conflict with it stays, and is told.
void DialogSession::followPageSize() {
  const Option size{kPageSize, dialog_.pageSize()};
  if (!job_->hasOption(size.key) || isTyped(size) || isMarked(size)) return;
  if (!panels_->change(size.key, size.value).granted) job_->mark(size.key, size.value);
}

void DialogSession::print() {
  if (!panels_) return;
  dialogChanged();
  // What is wrong stays where it is: the job goes with what was right before.
  if (page_->status().wrong.empty()) {
    try {
      panels_->print();
    } catch (const std::exception& error) {
      page_->tellError(error.what());
    }
  }
  bringToDialog();
}

bool DialogSession::knowsNoConflict() const { return panels_ && job_->conflicts().empty(); }

void DialogSession::optionsChanged() {
  if (following_) return;
  bringToDialog();
  page_->optionsChanged();
}

void DialogSession::bringToDialog() {
  for (const Option& each : differences()) {
    dialog_.set({each.key, job_->marked(each.key).value_or("")});
  }
  std::string told;
  for (const Option& kept : differences()) told += (told.empty() ? "" : "\n") + setBack(kept);
  if (!told.empty()) page_->keep(told);
}

/// The dialog hides choices that do not go with what is installed in the printer.
std::string DialogSession::setBack(const Option& kept) {
  const std::string wanted = job_->marked(kept.key).value_or("");
  following_ = true;
  panels_->change(kept.key, kept.value);
  following_ = false;
  outcome_.clear();
  insisted_.reset();
  return cannotBe({kept.key, wanted});
}

std::string DialogSession::cannotBe(const Option& wanted) const {
  return platform::filled(_("“{option}” cannot be “{choice}” in this dialog."),
                          {{"option", job_->optionTitle(wanted.key)},
                           {"choice", job_->choiceTitle(wanted.key, wanted.value)}});
}

void DialogSession::tell(const std::string& message, const std::optional<Option>& insisted) {
  if (!message.empty()) outcome_ += (outcome_.empty() ? "" : "\n") + message;
  if (insisted) insisted_ = insisted;
  if (!following_) tellOutcome();
}

void DialogSession::tellOutcome() {
  const std::string message = std::exchange(outcome_, {});
  const auto insisted = std::exchange(insisted_, std::nullopt);
  if (insisted) {
    page_->tell(message, [this, change = *insisted] { panels_->insist(change.key, change.value); });
  } else {
    page_->tell(message);
  }
}

}  // namespace cardpanels::dialog
