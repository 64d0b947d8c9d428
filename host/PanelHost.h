#pragma once

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "host/HostCallback.h"
#include "host/JobOptions.h"
#include "host/PanelDriver.h"
#include "platform/Bundle.h"
#include "platform/Dictionary.h"
#include "platform/PlugIn.h"
#include "platform/PrintPanel.h"

namespace cardpanels::host {

/// What a dialog learns while panels work.
class PanelObserver {
 public:
  PanelObserver() = default;
  PanelObserver(const PanelObserver&) = delete;
  PanelObserver& operator=(const PanelObserver&) = delete;
  virtual ~PanelObserver() = default;

  /// Marks have changed: re-read summaries and values.
  virtual void optionsChanged() = 0;

  /// The user is to be told `message`, in place of what was told last; empty: nothing any more.
  /// `insisted` is a change that was refused only for what it would undo, so the user may insist
  /// on it by `PanelHost::insist`.
  virtual void tell(const std::string& message, const std::optional<Option>& insisted) = 0;
};

/// Drives a plug-in's panels through their life over one job's options.
class PanelHost final : public PanelDriver {
 public:
  /// Loads the plug-in of the bundle in folder `path`, hands it `bundle`, makes the panels for
  /// `job`, which must outlive this, and lets them restore their values. Throws `Error` when the
  /// plug-in cannot be loaded. A printer without panels is no error.
  PanelHost(const std::string& path, std::shared_ptr<platform::Bundle> bundle, JobOptions& job);
  ~PanelHost() override;

  /// Who learns of changes, null for nobody. The observer stays the caller's.
  void setObserver(PanelObserver* observer) { observer_ = observer; }

  const std::vector<Panel>& panels() const override { return panels_; }
  /// Throws `Error` with the file and id that fail.
  std::shared_ptr<platform::View> view(const Panel& panel) override;
  void show(const Panel& panel) override;
  void hide(const Panel& panel) override;
  void storeTyped(const Panel& panel) override;
  std::shared_ptr<platform::Dictionary> summary(const Panel& panel) const override;
  const std::vector<std::string>& keys(const Panel& panel) const override;
  void reset() override;
  std::vector<std::string> replace(const std::set<std::string>& keys,
                                   const std::vector<Option>& options) override;
  const std::map<std::string, std::string>& refusals() const override { return refusals_; }
  JobOptions& job() override { return job_; }

  /// Throws `Error` as `view` does.
  void print() override;

  ChangeResult change(const std::string& key, const std::string& choice) override;

  /// The same for a change that the user wants whatever other options lose by it.
  ChangeResult insist(const std::string& key, const std::string& choice);

  /// The keywords that panels claim; a dialog does not offer these options a second time.
  const std::set<std::string>& claimedKeys() const { return claimedKeys_; }

 private:
  class Telling;

  ChangeResult change(const Option& option, Losing losing);
  void follow(const std::vector<Option>& changes);
  void requested(const Option& option, const ChangeResult& result);
  void fill(const Panel& panel);
  void deliverLongValues(const Panel& panel);

  JobOptions& job_;
  std::shared_ptr<platform::Bundle> bundle_;
  std::shared_ptr<ConstrainingHostCallback> callback_;
  std::shared_ptr<platform::PlugIn> plugIn_;
  std::vector<Panel> panels_;
  std::map<Panel, std::vector<std::string>> keys_;  // that the printer has
  std::set<std::string> claimedKeys_;
  std::map<std::string, std::string> refusals_;
  std::set<Panel> ready_;  // those whose controls are filled
  Panel shown_;
  PanelObserver* observer_ = nullptr;
  Telling* telling_ = nullptr;
};

}  // namespace cardpanels::host
