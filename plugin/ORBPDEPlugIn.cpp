#include "plugin/ORBPDEPlugIn.h"

#include <cups/ppd.h>

#include "plugin/log/PDELogging.h"
#include "plugin/panels/AreaStrings.h"
#include "plugin/panels/CardHandlingPDE.h"
#include "plugin/panels/PeelOffPDE.h"
#include "plugin/panels/RibbonPanelsPDE.h"
#include "plugin/panels/ThermalLaminatePDE.h"
#include "plugin/panels/UltravioletPDE.h"

namespace cardpanels {

using platform::Text;

namespace {

const std::string kPrinterModuleTypeIDStr = platform::kPrinterModuleType;

using Callback = std::shared_ptr<platform::CallbackObject>;
using PlugInBundle = std::shared_ptr<platform::Bundle>;

template <class Panel>
std::shared_ptr<platform::PrintPanel> create(const Callback& callback, const PlugInBundle& bundle) {
  return Panel::initWithCallback_andBundle(callback, bundle);
}

/// The panels in the order in which the dialog shows them.
constexpr struct {
  std::shared_ptr<platform::PrintPanel> (*create)(const Callback&, const PlugInBundle&);
  const char* created;
} kPanels[] = {
    {create<RibbonPanelsPDE>,
     "Creating PDE of type kPrinterModuleTypeIDStr(%@) RibbonPanelsPDE (%p)"},
    {create<UltravioletPDE>,
     "Creating PDE of type kPrinterModuleTypeIDStr(%@) UltravioletPanelPDE (%p)"},
    {create<PeelOffPanelPDE>,
     "Creating PDE of type kPrinterModuleTypeIDStr(%@) PeelOffPanelPDE (%p)"},
    {create<ThermalLaminatePDE>,
     "Creating PDE of type kPrinterModuleTypeIDStr(%@) ThermalLaminatePDE (%p)"},
    {create<CardHandlingPDE>,
     "Creating PDE of type kPrinterModuleTypeIDStr(%@) CardHandlingPDE (%p)"},
};

void logModel(const ORBPDEPlugIn* self, ppd_file_t* ppd) {
  if (ppd == nullptr) {
    _PDELog(self, "PPD: nil");
    return;
  }
  const ppd_attr_t* attribute = ppdFindAttr(ppd, "cupsModelNumber", nullptr);
  if (attribute == nullptr) {
    _PDELog(self, "ATTR: nil");
    return;
  }
  _PDELog(self, "ATTR: [%s][%s][%s][%s]", &attribute->name[0], &attribute->spec[0],
          &attribute->text[0], attribute->value != nullptr ? attribute->value : "NULL");
}

}  // namespace

bool ORBPDEPlugIn::initWithBundle(const std::shared_ptr<platform::Bundle>& bundle) {
  _PDEProlog(this, "initWithBundle:(%@, %p)", bundle, bundle);
  pluginBundle = bundle;
  _PDEEpilog(this, "initWithBundle:=BOOL(YES)");
  return true;
}

std::shared_ptr<platform::PanelArray> ORBPDEPlugIn::PDEPanelsForType_withHostInfo(
    const Text& type, const std::shared_ptr<platform::CallbackObject>& info) {
  _PDEProlog(this, "PDEPanelsForType:(%@) withHostInfo:(%@)", type, info);
  PDEs = std::make_shared<platform::PanelArray>(5);
  if (type == kPrinterModuleTypeIDStr) {
    logModel(this, info ? info->ppdFile() : nullptr);
    for (const auto& panel : kPanels) {
      const auto created = panel.create(info, pluginBundle);
      _PDELog(this, panel.created, kPrinterModuleTypeIDStr, created);
      if (created) PDEs->append(created);
    }
    if (PDEs->empty()) PDEs.reset();
  }
  _PDEEpilog(this, "PDEPanelsForType:withHostInfo:=NSArray(%@)", PDEs);
  return PDEs;
}

const char* ORBPDEPlugIn::formatArea(const char* x, const char* y, const char* width,
                                     const char* height) {
  return cardpanels::formatArea(x, y, width, height);
}

void ORBPDEPlugIn::parseArea(const char* area, const char*& x, const char*& y, const char*& width,
                             const char*& height) {
  cardpanels::parseArea(area, x, y, width, height);
}

}  // namespace cardpanels

cardpanels::platform::PlugIn* cardpanelsCreatePlugIn() { return new cardpanels::ORBPDEPlugIn; }
