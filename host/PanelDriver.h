#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/Dictionary.h"
#include "platform/PrintPanel.h"
#include "platform/View.h"

namespace cardpanels::host {

class JobOptions;
struct ChangeResult;
struct Option;

/// What a page needs of whoever drives its panels.
class PanelDriver {
 public:
  using Panel = std::shared_ptr<platform::PrintPanel>;

  PanelDriver() = default;
  PanelDriver(const PanelDriver&) = delete;
  PanelDriver& operator=(const PanelDriver&) = delete;
  virtual ~PanelDriver() = default;

  /// The panels in the order to show them; always the same.
  virtual const std::vector<Panel>& panels() const = 0;

  /// The keywords of those of the panel's options that the printer has; always the same.
  virtual const std::vector<std::string>& keys(const Panel& panel) const = 0;

  /// The panel's view, loaded when it is not. Throws a `std::exception` that tells why there is
  /// none.
  virtual std::shared_ptr<platform::View> view(const Panel& panel) = 0;

  /// The panel is about to appear.
  virtual void show(const Panel& panel) = 0;

  /// The panel is about to go.
  virtual void hide(const Panel& panel) = 0;

  /// The user has typed into the panel and is done: what was typed shall be kept.
  virtual void storeTyped(const Panel& panel) = 0;

  /// Option titles and the titles of what is chosen, a new dictionary a call; empty for nothing.
  virtual std::shared_ptr<platform::Dictionary> summary(const Panel& panel) const = 0;

  /// The user pressed Print: panels that want to know of it are told, then all save their values.
  /// Throws a `std::exception` as `view` does.
  virtual void print() = 0;

  /// A change that the user asks for beside the panels; panels are told and follow.
  virtual ChangeResult change(const std::string& key, const std::string& choice) = 0;

  /// Puts all options that panels claim back to the printer's defaults; panels are told and follow.
  virtual void reset() = 0;

  /// Puts the options `keys` to the printer's defaults and over them what was saved, `options`,
  /// without asking the constraints; panels are told and follow. Answers what was left out because
  /// the printer does not know it, a sentence each.
  virtual std::vector<std::string> replace(const std::set<std::string>& keys,
                                           const std::vector<Option>& options) = 0;

  /// Why the last request for an option was refused, by its keyword; a granted one takes it away.
  virtual const std::map<std::string, std::string>& refusals() const = 0;

  /// The job whose options the panels edit.
  virtual JobOptions& job() = 0;
};

}  // namespace cardpanels::host
