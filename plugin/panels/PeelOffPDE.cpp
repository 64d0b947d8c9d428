#include "plugin/panels/PeelOffPDE.h"

#include "plugin/panels/PanelContract.h"

namespace cardpanels {

using platform::Text;
using Panel = PeelOffPanelPDE;

namespace {

/// The place, in both sides' options, of the choice whose areas the user types.
constexpr std::int64_t kDefinedAreasChoice = 12;

}  // namespace

constexpr std::array<TabbedOptionSlot<Panel>, 2> Panel::kSlots{{
    {{
         "frontPO",
         &Panel::frontPeelOffPopUp,
         &Panel::frontPeelOffChoices,
         &Panel::frontPeelOffOption,
         &Panel::frontPeelOffSelection,
         "Adding front peel-off option",
         "Front peel-off option not supported!",
         "initializing front peel-off",
         "disabling front peel-off",
         "Peel-off selection not found!",
     },
     &Panel::updateFrontPeelOffTab},
    {{
         "backPO",
         &Panel::backPeelOffPopUp,
         &Panel::backPeelOffChoices,
         &Panel::backPeelOffOption,
         &Panel::backPeelOffSelection,
         "Adding back peel-off option",
         "Back peel-off option not supported!",
         "initializing back peel-off",
         "disabling back peel-off",
         "Peel-off selection not found!",
     },
     &Panel::updateBackPeelOffTab},
}};

std::span<const platform::Action> Panel::actions() const {
  static constexpr std::array kActions{
      platform::action<Panel, &Panel::changeFrontPeelOffOption>("changeFrontPeelOffOption:"),
      platform::action<Panel, &Panel::changeBackPeelOffOption>("changeBackPeelOffOption:"),
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
  return contract::panelView(*this, "PeelOffPDE");
}

Text Panel::panelName() { return contract::panelName(*this, "PeelOffPanelName"); }

Text Panel::panelKind() { return contract::panelKind(*this, ".PeelOffKind"); }

std::shared_ptr<platform::StringArray> Panel::supportedPPDOptionKeys() {
  return contract::supportedPPDOptionKeys(*this, kSlots, 14, [](platform::StringArray& keys) {
    areas::addSupportedKeys(kAreaEditor, keys);
  });
}

void Panel::willShow() { contract::willShow(*this); }

void Panel::storeTypedAreas() {
  if (!hasInited) return;
  queryPeelOffAreasFromUI();
  savePeelOffAreasToSettings();
}

bool Panel::shouldHide() {
  return contract::shouldHide(*this, [this] { storeTypedAreas(); });
}

bool Panel::shouldPrint() {
  return contract::shouldPrint(*this, [this] { storeTypedAreas(); });
}

void Panel::PPDOptionKeyValueDidChange_ppdChoice(const Text& key, const Text& choice) {
  contract::hostChange(*this, kSlots, key, choice, [&](const auto* option) {
    areas::followHostChange(*this, kAreaEditor, option, key, choice);
  });
}

bool Panel::restoreValuesAndReturnError(Text* error) {
  return contract::restoreValues(*this, error, [this] { queryPeelOffAreasFromSettings(); });
}

// Requests the fields as they are, shown or not, without reading them into the areas first.
bool Panel::saveValuesAndReturnError(Text* error) {
  return contract::saveValues(*this, error, [this] { savePeelOffAreasToSettings(); });
}

void Panel::updateMarkedSelections() {
  _PDEProlog(this, "updateMarkedSelections");
  slots::takeMarkedSelections(*this, kSlots);
  _PDEEpilog(this, "updateMarkedSelections");
}

/// The mark in the PPD decides, not the panel's selection.
void Panel::showAreaTab(const OptionSlot<Panel>& slot,
                        const std::shared_ptr<platform::TabView>& tab) {
  if (!tab) return;
  ppd_option_t* option = this->*slot.option;
  tab->setHidden(option == nullptr ||
                 indexOfMarkedOption_forKey(option, slot.key) != kDefinedAreasChoice);
}

void Panel::updateFrontPeelOffTab() {
  _PDEProlog(this, "updateFrontPeelOffTab");
  showAreaTab(kSlots[0], frontPeelOffArea);
  _PDEEpilog(this, "updateFrontPeelOffTab");
}

void Panel::updateBackPeelOffTab() {
  _PDEProlog(this, "updateBackPeelOffTab");
  showAreaTab(kSlots[1], backPeelOffArea);
  _PDEEpilog(this, "updateBackPeelOffTab");
}

void Panel::updateUI() {
  contract::updateUI(*this, kSlots, [this] {
    setAreasUI();
    updateFrontPeelOffTab();
    updateBackPeelOffTab();
  });
}

std::int64_t Panel::indexOfMarkedOption_forKey(ppd_option_t* option, const char* key) {
  return slots::indexOfMarkedOption(*this, option, key);
}

void Panel::setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option) {
  slots::setViewTitleByTag(*this, tag, option);
}

void Panel::initializeUI() {
  contract::initializeUI(*this, kSlots, [this] { queryPeelOffAreasFromSettings(); });
}

std::shared_ptr<platform::Dictionary> Panel::summaryInfo() {
  return contract::summaryInfo(*this, kSlots, 2);
}

std::shared_ptr<PDEChoice> Panel::selectionForPopUp_withKey(
    const std::shared_ptr<platform::PopUpButton>& popUp, const Text& key) {
  return slots::selectionForPopUp(*this, popUp, key);
}

void Panel::changeFrontPeelOffOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[0]);
}

void Panel::changeBackPeelOffOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[1]);
}

}  // namespace cardpanels
