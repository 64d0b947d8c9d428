#include "panels/ThermalLaminatePDE.h"

#include "panels/PanelContract.h"
#include "plugin/PDELogging.h"

namespace cardpanels {

using platform::Text;
using Panel = ThermalLaminatePDE;

constexpr std::array<OptionSlot<Panel>, 1> Panel::kSlots{{{
    "cardLaminate",
    &Panel::frontLaminatePopUp,
    &Panel::frontLaminateChoices,
    &Panel::frontLaminateOption,
    &Panel::frontLaminateSelection,
    "Adding laminate option",
    "Laminate not supported!",
    "initializing laminate",
    "disabling laminate",
    "Laminate selection not found!",
}}};

std::span<const platform::Outlet> Panel::outlets() const {
  static constexpr std::array kOutlets{
      platform::outlet<&Panel::pdeView>("pdeView"),
      platform::outlet<&Panel::frontLaminatePopUp>("frontLaminatePopUp"),
  };
  return kOutlets;
}

std::span<const platform::Action> Panel::actions() const {
  static constexpr std::array kActions{
      platform::action<Panel, &Panel::changeFrontLaminateOption>("changeFrontLaminateOption:"),
  };
  return kActions;
}

std::shared_ptr<Panel> Panel::initWithCallback_andBundle(
    const std::shared_ptr<platform::CallbackObject>& callback,
    const std::shared_ptr<platform::Bundle>& bundle) {
  const std::shared_ptr<Panel> panel(new Panel);
  contract::beginInit(*panel, "initWithCallback:(%@, %p) andBundle:(%@ %p)", callback, bundle);
  return contract::endInit(panel, slots::findOptions(*panel, kSlots));
}

std::shared_ptr<platform::View> Panel::panelView() {
  return contract::panelView(*this, "ThermalLaminatePDE");
}

Text Panel::panelName() { return contract::panelName(*this, "ThermalLaminatePanelName"); }

Text Panel::panelKind() { return contract::panelKind(*this, ".ThermalLaminateKind"); }

std::shared_ptr<platform::StringArray> Panel::supportedPPDOptionKeys() {
  _PDEProlog(this, "supportedPPDOptionKeys:");
  if (!supportedOptions) {
    supportedOptions = std::make_shared<platform::StringArray>(2);
    slots::addSupportedKeys(*this, kSlots, *supportedOptions);
  }
  _PDEEpilog(this, "supportedPPDOptionKeys:=NSArray(%@)", supportedOptions);
  return supportedOptions;
}

void Panel::willShow() { contract::willShow(*this); }

bool Panel::shouldHide() { return contract::shouldHide(*this); }

void Panel::PPDOptionKeyValueDidChange_ppdChoice(const Text& key, const Text& choice) {
  _PDEProlog(this, "PPDOptionKeyValueDidChange:(%@) ppdChoice:(%@)", key, choice);
  slots::takeHostChange(*this, kSlots, key, choice);
  _PDEEpilog(this, "PPDOptionKeyValueDidChange:ppdChoice:=void");
}

bool Panel::restoreValuesAndReturnError(Text* error) {
  _PDEProlog(this, "restoreValuesAndReturnError:(%p)", static_cast<const void*>(error));
  contract::restoreMarkedValues(*this);
  _PDEEpilog(this, "restoreValuesAndReturnError:=BOOL(YES)");
  return true;
}

bool Panel::saveValuesAndReturnError(Text* error) {
  _PDEProlog(this, "saveValuesAndReturnError:(%p)", static_cast<const void*>(error));
  contract::saveMarkedValues(*this);
  _PDEEpilog(this, "saveValuesAndReturnError:=BOOL(YES)");
  return true;
}

void Panel::updateMarkedSelections() { slots::takeMarkedSelections(*this, kSlots); }

void Panel::updateUI() {
  _PDEProlog(this, "updateUI:");
  if (hasInited) slots::showSelections(*this, kSlots);
  _PDEEpilog(this, "updateUI:");
}

std::int64_t Panel::indexOfMarkedOption_forKey(ppd_option_t* option, const char* key) {
  return slots::indexOfMarkedOption(*this, option, key);
}

void Panel::setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option) {
  slots::setViewTitleByTag(*this, tag, option);
}

void Panel::initializeUI() {
  _PDEProlog(this, "initializeUI:");
  if (!hasInited) {
    for (const auto& slot : kSlots) slots::initializePopUp(*this, slot);
    hasInited = true;
  }
  _PDEEpilog(this, "initializeUI:=void");
}

std::shared_ptr<platform::Dictionary> Panel::summaryInfo() {
  _PDEProlog(this, "summaryInfo:");
  auto summary = std::make_shared<platform::Dictionary>(2);
  slots::summarize(*this, kSlots, *summary);
  _PDEEpilog(this, "summaryInfo:NSDictionary(%@, %p)=", summary, summary);
  return summary;
}

std::shared_ptr<PDEChoice> Panel::selectionForPopUp_withKey(
    const std::shared_ptr<platform::PopUpButton>& popUp, const Text& key) {
  return slots::selectionForPopUp(*this, popUp, key);
}

void Panel::changeFrontLaminateOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[0]);
}

}  // namespace cardpanels
