#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/JobOptions.h"
#include "platform/Bundle.h"
#include "platform/CallbackObject.h"
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

  /// The user is to be told `message`; empty: what was told last no longer holds.
  virtual void tell(const std::string& message) = 0;
};

/// Drives a plug-in's panels through their life over one job's options.
class PanelHost {
 public:
  /// Loads the plug-in of the bundle in folder `path`, hands it `bundle`, and makes the panels for
  /// `job`, which must outlive this. Throws `Error` when the bundle cannot be loaded. A printer
  /// without panels is no error.
  PanelHost(const std::string& path, std::shared_ptr<platform::Bundle> bundle, JobOptions& job);
  ~PanelHost();
  PanelHost(const PanelHost&) = delete;
  PanelHost& operator=(const PanelHost&) = delete;

  /// The observer, which the caller owns; null for none.
  void setObserver(PanelObserver* observer);

  /// The panels in the order to show them. They have been restored.
  const std::vector<std::shared_ptr<platform::PrintPanel>>& panels() const;

  /// The panel's view, loaded when it is not; throws `Error` with the file and id that fail.
  std::shared_ptr<platform::View> view(platform::PrintPanel& panel);

  /// The panel's page is about to appear.
  void show(platform::PrintPanel& panel);
  /// The panel's page is about to go.
  void hide(platform::PrintPanel& panel);
  /// Stores what the user has typed in this panel.
  void storeTyped(platform::PrintPanel& panel);
  /// The user pressed Print: `shouldPrint` where a panel offers it, then `saveValues` for all.
  void print();

  /// A change that the dialog or the user's command line asks for, told to every panel and shown.
  ChangeResult change(const std::string& key, const std::string& choice);

  /// The summary entries of a panel.
  std::shared_ptr<platform::Dictionary> summary(platform::PrintPanel& panel) const;

  /// The keywords that the panels claim; the dialog does not show these a second time.
  std::vector<std::string> claimedKeys() const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

/// The bundle's folder: `CARDPANELS_BUNDLE` in the environment, else `../lib/cardpanels.bundle`
/// seen from the running program's folder.
std::string defaultBundlePath();

}  // namespace cardpanels::host
