#include "dialog/Presets.h"

#include <algorithm>
#include <utility>

#include "host/JobAttributes.h"
#include "host/JobOptions.h"
#include "host/MediaOption.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::dialog {
namespace {

using host::Option;
using host::Preset;
using platform::_;
using platform::equalIgnoringCase;
using platform::filled;

constexpr const char* kCopies = "copies";

const char* standardTitle() { return _("Standard"); }

std::string titleOf(const Preset& preset) {
  if (preset.name.empty()) return standardTitle();
  if (!preset.isLocked) return preset.name;
  return filled(_("{preset} (for everybody)"), {{"preset", preset.name}});
}

}  // namespace

Presets::Presets(host::PanelDriver& driver, Job job, Client client)
    : driver_(driver),
      job_(std::move(job)),
      client_(std::move(client)),
      presets_(1),
      name_(job_.queue.instance) {
  for (const auto& panel : driver_.panels()) {
    const auto& keys = driver_.keys(panel);
    keys_.insert(keys.begin(), keys.end());
  }
  if (driver_.job().hasOption(host::kPageSize)) keys_.insert(host::kPageSize);
  if (!name_.empty()) presets_.push_back({name_});
  wanted_ = now();
  update();
  work({PresetTask::Kind::read, job_.queue}, [this] { begun(); });
}

/// The job has the options of its preset already.
void Presets::begun() {
  showSaved(name_);
  const auto unknown = unknownIn(chosen());
  if (!name_.empty() && !unknown.empty()) client_.tellUnknown(unknown);
}

/// Nothing happens while something else is done. `done` is called when it could be done.
void Presets::work(PresetTask task, std::function<void()> done) {
  if (working_) return;
  working_ = job_.work(task, [this, done = std::move(done)](PresetsRead answer) {
    working_.reset();
    const std::string error = answer.error;
    read(std::move(answer));
    if (error.empty()) return done();
    client_.tellError(error);
    update();
  });
}

void Presets::read(PresetsRead read) {
  if (!read.presets.empty()) presets_ = std::move(read.presets);
}

const Preset* Presets::presetNamed(const std::string& name) const {
  const auto found = std::find_if(presets_.begin(), presets_.end(), [&](const Preset& each) {
    return equalIgnoringCase(each.name, name);
  });
  return found == presets_.end() ? nullptr : &*found;
}

const Preset& Presets::chosen() const {
  const Preset* const named = presetNamed(name_);
  if (named != nullptr) return *named;
  return presets_.front();
}

void Presets::showSaved(const std::string& name) {
  const Preset* const named = presetNamed(name);
  name_ = named == nullptr ? "" : named->name;
  wanted_ = valuesOf(chosen());
  update();
}

void Presets::setChosen(const std::string& name) {
  showSaved(name);
  job_.use(name_);
}

void Presets::choose(std::size_t entry) {
  if (entry >= presets_.size()) return;
  std::set<std::string> keys = keys_;
  for (const Option& each : chosen().options) {
    if (driver_.job().hasOption(each.key)) keys.insert(each.key);
  }
  const Preset& preset = presets_[entry];
  auto told = driver_.replace(keys, optionsOf(preset));
  for (std::string& each : unknownIn(preset)) told.push_back(std::move(each));
  client_.tellUnknown(told);
  job_.follow(copiesOf(preset));
  setChosen(preset.name);
}

void Presets::save() {
  if (row_.canSave) saveAs(name_);
}

void Presets::saveAs(const std::string& name) {
  if (!judge(name).isGood || !client_.storeTyped()) return;
  PresetTask task{PresetTask::Kind::save, {job_.queue.queue, name}};
  for (const auto& [key, value] : now()) task.options.push_back({key, value});
  work(std::move(task), [this, name] { setChosen(name); });
}

NameVerdict Presets::judge(const std::string& name) const {
  if (name.empty()) return {};  // nothing typed yet
  std::string fault = host::presetNameFault(name);
  if (!fault.empty()) return {false, std::move(fault)};
  if (equalIgnoringCase(name, standardTitle())) {
    return {false, _("That is the name of what is saved without a name.")};
  }
  const Preset* const known = presetNamed(name);
  if (known == nullptr) return {true, ""};
  return {true, filled(known->isLocked
                           ? _("{preset} is for everybody; yours will stand in its place for you.")
                           : _("{preset} is there already, and will be replaced."),
                       {{"preset", known->name}})};
}

void Presets::remove() {
  if (!row_.canDelete) return;
  work({PresetTask::Kind::remove, {job_.queue.queue, name_}},
       [this, gone = chosen()] { removed(gone); });
}

void Presets::removed(const Preset& gone) {
  setChosen(gone.name);
  const auto putBack = [this, gone] {
    work({PresetTask::Kind::save, {job_.queue.queue, gone.name}, gone.options},
         [this, gone] { setChosen(gone.name); });
  };
  client_.tellDone(filled(_("The preset {preset} was deleted."), {{"preset", gone.name}}),
                   {_("Undo"), putBack});
}

void Presets::update() {
  const Preset& preset = chosen();
  PresetRow row;
  for (const Preset& each : presets_) {
    row.entries.push_back({titleOf(each), each.isLocked && !each.name.empty()});
  }
  row.chosen = static_cast<std::size_t>(&preset - presets_.data());
  const bool isOwn = !preset.name.empty() && !preset.isLocked;
  const bool differs = now() != wanted_;
  if (differs) row.state = _("Modified");
  row.canSave = isOwn && differs;
  row.canDelete = isOwn;
  row_ = std::move(row);
  client_.show(row_);
}

bool Presets::isOfPPD(const Option& option) const {
  return host::isOfPPD(driver_.job().ppd(), option.key);
}

/// With what the server adds where it lacks that.
std::vector<Option> Presets::optionsOf(const Preset& preset) const {
  host::OptionList all(job_.serverOptions);
  for (const Option& each : preset.options) all.set(each);
  auto options = all.options();
  std::erase_if(options, [this](const Option& each) { return !isOfPPD(each); });
  return options;
}

std::string Presets::copiesOf(const Preset& preset) const {
  host::OptionList all(job_.serverOptions);
  for (const Option& each : preset.options) all.set(each);
  return all.value(kCopies).value_or("1");
}

std::vector<std::string> Presets::unknownIn(const Preset& preset) const {
  std::string names;
  for (const Option& each : preset.options) {
    if (isOfPPD(each) || host::isJobAttribute(each.key)) continue;
    names += (names.empty() ? "" : _(", ")) + platform::onOneLine(each.key);
  }
  if (names.empty()) return {};
  return {filled(_("{preset} has options that this printer does not have: {options}."),
                 {{"preset", titleOf(preset)}, {"options", names}})};
}

Presets::Values Presets::now() const {
  Values values;
  for (const std::string& key : keys_) {
    if (const auto marked = driver_.job().marked(key)) values[key] = *marked;
  }
  values[kCopies] = job_.copies();
  return values;
}

/// What choosing it would make of the job.
Presets::Values Presets::valuesOf(const Preset& preset) {
  host::JobOptions& job = driver_.job();
  const auto state = job.state();
  job.replace(keys_, optionsOf(preset));
  Values values = now();
  job.restore(state);
  values[kCopies] = copiesOf(preset);
  return values;
}

}  // namespace cardpanels::dialog
