#pragma once

#include <memory>
#include <vector>

#include "platform/Dictionary.h"
#include "platform/PrintPanel.h"
#include "platform/View.h"

namespace cardpanels::host {

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

  /// The panel's view, loaded when it is not. Throws a `std::exception` that tells why there is
  /// none.
  virtual std::shared_ptr<platform::View> view(const Panel& panel) = 0;

  /// The panel is about to appear.
  virtual void show(const Panel& panel) = 0;

  /// The panel is about to go.
  virtual void hide(const Panel& panel) = 0;

  /// The user has typed into the panel and left the field: what was typed shall be kept.
  virtual void storeTyped(const Panel& panel) = 0;

  /// Option titles and the titles of what is chosen, a new dictionary a call; empty for nothing.
  virtual std::shared_ptr<platform::Dictionary> summary(const Panel& panel) const = 0;
};

}  // namespace cardpanels::host
