#include "plugin/panels/ThermalLaminatePDE.h"

#include "plugin/panels/PanelContract.h"

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
  return contract::supportedPPDOptionKeys(*this, kSlots, 2);
}

void Panel::willShow() { contract::willShow(*this); }

bool Panel::shouldHide() { return contract::shouldHide(*this); }

void Panel::PPDOptionKeyValueDidChange_ppdChoice(const Text& key, const Text& choice) {
  contract::hostChange(*this, kSlots, key, choice);
}

bool Panel::restoreValuesAndReturnError(Text* error) {
  return contract::restoreValues(*this, error);
}

bool Panel::saveValuesAndReturnError(Text* error) { return contract::saveValues(*this, error); }

void Panel::updateMarkedSelections() { slots::takeMarkedSelections(*this, kSlots); }

void Panel::updateUI() { contract::updateUI(*this, kSlots); }

std::int64_t Panel::indexOfMarkedOption_forKey(ppd_option_t* option, const char* key) {
  return slots::indexOfMarkedOption(*this, option, key);
}

void Panel::setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option) {
  slots::setViewTitleByTag(*this, tag, option);
}

void Panel::initializeUI() { contract::initializeUI(*this, kSlots); }

std::shared_ptr<platform::Dictionary> Panel::summaryInfo() {
  return contract::summaryInfo(*this, kSlots, 2);
}

std::shared_ptr<PDEChoice> Panel::selectionForPopUp_withKey(
    const std::shared_ptr<platform::PopUpButton>& popUp, const Text& key) {
  return slots::selectionForPopUp(*this, popUp, key);
}

void Panel::changeFrontLaminateOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[0]);
}

}  // namespace cardpanels
