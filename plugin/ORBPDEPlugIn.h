#pragma once

#include <memory>
#include <string>

#include "platform/AreaStrings.h"
#include "platform/PlugIn.h"

namespace cardpanels {

/// The plug-in's one object: makes the panels for a host that asks.
class ORBPDEPlugIn final : public platform::PlugIn, public platform::AreaStrings {
 public:
  bool initWithBundle(const std::shared_ptr<platform::Bundle>& bundle) override;

  /// The array stays the factory's too, until the next call makes another.
  std::shared_ptr<platform::PanelArray> PDEPanelsForType_withHostInfo(
      const platform::Text& type, const std::shared_ptr<platform::CallbackObject>& info) override;

  const char* formatArea(const char* x, const char* y, const char* width,
                         const char* height) override;
  void parseArea(const char* area, const char*& x, const char*& y, const char*& width,
                 const char*& height) override;

  std::string_view className() const override { return "ORBPDEPlugIn"; }

 private:
  std::shared_ptr<platform::Bundle> pluginBundle;
  std::shared_ptr<platform::PanelArray> PDEs;
};

}  // namespace cardpanels
