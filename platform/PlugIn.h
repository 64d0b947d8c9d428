#pragma once

#include <memory>

#include "platform/Array.h"
#include "platform/Bundle.h"
#include "platform/CallbackObject.h"
#include "platform/Object.h"
#include "platform/PrintPanel.h"
#include "platform/Text.h"

namespace cardpanels::platform {

using PanelArray = Array<std::shared_ptr<PrintPanel>>;

/// The extension type that a print dialog asks for when it prints to a printer.
inline constexpr const char* kPrinterModuleType = "BDB091F4-E57F-11D3-B5CC-0050E4603277";

/// The one object that a plug-in's bundle offers.
class PlugIn : public Object {
 public:
  ~PlugIn() override;

  /// Called once, before anything else, with the bundle to take resources from. Always true.
  virtual bool initWithBundle(const std::shared_ptr<Bundle>& bundle) = 0;

  /// The panels that the plug-in offers for `type`, in the order to show them: an empty array for a
  /// type that is not its own, an empty pointer when this printer needs none. `info` is the host as
  /// the panels shall see it.
  virtual std::shared_ptr<PanelArray> PDEPanelsForType_withHostInfo(
      const Text& type, const std::shared_ptr<CallbackObject>& info) = 0;
};

}  // namespace cardpanels::platform

/// The bundle's one exported symbol: a new plug-in, which the caller owns.
extern "C" cardpanels::platform::PlugIn* cardpanelsCreatePlugIn();

namespace cardpanels::platform {
inline constexpr const char* kPlugInEntry = "cardpanelsCreatePlugIn";
}  // namespace cardpanels::platform
