#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "dialog/Notice.h"
#include "dialog/PresetRow.h"
#include "dialog/PresetWork.h"
#include "host/PanelDriver.h"
#include "host/Presets.h"

namespace cardpanels::dialog {

/// The presets of a job's queue: "Standard", which is what is saved for the queue itself, and those
/// with names. A preset holds what the panels claim, the size of the card and the copies.
class Presets {
 public:
  /// What belongs to the job besides its panels.
  struct Job {
    host::QueueName queue;                         // with the preset that the job began with
    std::vector<host::Option> serverOptions = {};  // what the server adds to jobs without them
    WorkOnPresets work;
    std::function<std::string()> copies;  // how many there shall be
    /// The user has chosen a preset, whose options have been set; it has so many copies.
    std::function<void(const std::string& copies)> follow;
    /// That instance of the queue stands for the job from now on.
    std::function<void(const std::string& name)> use = [](const std::string&) {};
  };

  /// What the presets need of their page.
  struct Client {
    std::function<void(const PresetRow& row)> show;
    /// Stores what was typed; false, and told, when that cannot be.
    std::function<bool()> storeTyped;
    /// Tells what a preset has that this printer has not, in place of what was told so.
    std::function<void(const std::vector<std::string>& sentences)> tellUnknown;
    std::function<void(const std::string& message)> tellError;
    /// Tells of what was done, with what undoes it.
    std::function<void(const std::string& message, const Notice::Answer& undo)> tellDone;
  };

  /// Shows the row, and reads the presets. `driver` must outlive this.
  Presets(host::PanelDriver& driver, Job job, Client client);

  const PresetRow& row() const { return row_; }

  /// The user chooses an entry of the row: all its options are set, and those that it lacks are put
  /// to the printer's defaults. What conflicts in it stays so.
  void choose(std::size_t entry);

  /// The user saves the job's options in the chosen preset, or under a name of their own.
  void save();
  void saveAs(const std::string& name);

  NameVerdict judge(const std::string& name) const;

  /// The user deletes the chosen preset. The job's options stay.
  void remove();

  /// To be called when options or copies are others now.
  void update();

 private:
  using Values = std::map<std::string, std::string>;

  void work(const PresetTask& task, std::function<void()> done);
  void read(PresetsRead read);
  void begun();
  void showSaved(const std::string& name);
  void removed(const host::Preset& gone);
  void setChosen(const std::string& name);
  const host::Preset* presetNamed(const std::string& name) const;
  const host::Preset& chosen() const;
  bool isOfPPD(const host::Option& option) const;
  std::vector<host::Option> optionsOf(const host::Preset& preset) const;
  std::string copiesOf(const host::Preset& preset) const;
  std::vector<std::string> unknownIn(const host::Preset& preset) const;
  Values now() const;
  Values valuesOf(const host::Preset& preset);

  host::PanelDriver& driver_;
  Job job_;
  Client client_;
  std::set<std::string> keys_;         // what a preset holds of the PPD
  std::vector<host::Preset> presets_;  // that of no name first
  std::string name_;                   // of the chosen one
  Values wanted_;                      // what the job has when it does not differ
  PresetRow row_;
  std::shared_ptr<void> working_;
};

}  // namespace cardpanels::dialog
