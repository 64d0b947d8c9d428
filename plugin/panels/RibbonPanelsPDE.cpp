#include "plugin/panels/RibbonPanelsPDE.h"

#include "plugin/panels/PanelContract.h"

namespace cardpanels {

using platform::Text;
using Panel = RibbonPanelsPDE;

namespace {

/// The place, in both sides' options, of the ribbon that has a resin panel.
constexpr std::int64_t kResinPanelRibbon = 3;
/// The place, in both sides' options, of the resin choice whose areas the user types.
constexpr std::int64_t kDefinedAreasResin = 11;

}  // namespace

constexpr std::array<TabbedOptionSlot<Panel>, 4> Panel::kSlots{{
    {{
         "frontRibbon",
         &Panel::frontRibbonPopUp,
         &Panel::frontRibbonChoices,
         &Panel::frontRibbonOption,
         &Panel::frontRibbonSelection,
         "Adding front ribbon option",
         "Front ribbon option not supported!",
         "initializing front ribbon",
         "disabling front ribbon",
         "Front ribbon selection not found!",
     },
     &Panel::updateFrontResinTab},
    {{
         "backRibbon",
         &Panel::backRibbonPopUp,
         &Panel::backRibbonChoices,
         &Panel::backRibbonOption,
         &Panel::backRibbonSelection,
         "Adding back ribbon option",
         "Back ribon option not supported!",
         "initializing back ribbon",
         "disabling back ribbon",
         "Back ribbon selection not found!",
     },
     &Panel::updateBackResinTab},
    {{
         "frontResin",
         &Panel::frontResinPopUp,
         &Panel::frontResinChoices,
         &Panel::frontResinOption,
         &Panel::frontResinSelection,
         "Adding front resin option",
         "Front resin option not supported!",
         "initializing front resin",
         "disabling front resin",
         "Front resin selection not found!",
     },
     &Panel::updateFrontResinTab},
    {{
         "backResin",
         &Panel::backResinPopUp,
         &Panel::backResinChoices,
         &Panel::backResinOption,
         &Panel::backResinSelection,
         "Adding back resin option",
         "Back resin option not supported!",
         "initializing back resin",
         "disabling back resin",
         "Back resin selection not found!",
     },
     &Panel::updateBackResinTab},
}};

std::span<const platform::Action> Panel::actions() const {
  static constexpr std::array kActions{
      platform::action<Panel, &Panel::changeFrontRibbonOption>("changeFrontRibbonOption:"),
      platform::action<Panel, &Panel::changeBackRibbonOption>("changeBackRibbonOption:"),
      platform::action<Panel, &Panel::changeFrontResinOption>("changeFrontResinOption:"),
      platform::action<Panel, &Panel::changeBackResinOption>("changeBackResinOption:"),
  };
  return kActions;
}

std::shared_ptr<Panel> Panel::initWithCallback_andBundle(
    const std::shared_ptr<platform::CallbackObject>& callback,
    const std::shared_ptr<platform::Bundle>& bundle) {
  const std::shared_ptr<Panel> panel(new Panel);
  contract::beginInit(*panel, "initWithCallback:(%@, %p) andBundle:(%@, %p)", callback, bundle);
  return contract::endInit(panel, slots::findOptions(*panel, kSlots));
}

std::shared_ptr<platform::View> Panel::panelView() {
  return contract::panelView(*this, "RibbonPanelsPDE");
}

Text Panel::panelName() { return contract::panelName(*this, "RibbonPanelName"); }

Text Panel::panelKind() { return contract::panelKind(*this, ".RibbonPanelKind"); }

std::shared_ptr<platform::StringArray> Panel::supportedPPDOptionKeys() {
  return contract::supportedPPDOptionKeys(
      *this, kSlots, 4,
      [](platform::StringArray& keys) { areas::addSupportedKeys(kAreaEditor, keys); },
      "supportedPPDOptionKeys:=NSArray");
}

void Panel::willShow() { contract::willShow(*this); }

void Panel::storeTypedAreas() {
  if (!hasInited) return;
  queryResinAreasFromUI();
  saveResinAreasToSettings();
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
  return contract::restoreValues(*this, error, [this] { queryResinAreasFromSettings(); });
}

// Requests the fields as they are, shown or not, without reading them into the areas first.
bool Panel::saveValuesAndReturnError(Text* error) {
  return contract::saveValues(*this, error, [this] { saveResinAreasToSettings(); });
}

void Panel::updateMarkedSelections() {
  _PDEProlog(this, "updateMarkedSelections:");
  slots::takeMarkedSelections(*this, kSlots);
  _PDEEpilog(this, "updateMarkedSelections:");
}

/// The marks in the PPD decide, not the panel's selections. `optionMissing` is logged, if it is not
/// null, when one of the two options is missing.
void Panel::showResinControls(const OptionSlot<Panel>& ribbon, const OptionSlot<Panel>& resin,
                              const std::shared_ptr<platform::TextField>& label,
                              const std::shared_ptr<platform::TabView>& tab,
                              const char* optionMissing) {
  const auto& popUp = this->*resin.popUp;
  if (!tab) return;
  bool hasResinPanel = false;
  bool hasDefinedAreas = false;
  if (this->*ribbon.option != nullptr && this->*resin.option != nullptr) {
    const std::int64_t r = indexOfMarkedOption_forKey(this->*ribbon.option, ribbon.key);
    const std::int64_t s = indexOfMarkedOption_forKey(this->*resin.option, resin.key);
    hasResinPanel = r == kResinPanelRibbon && s != -1;
    hasDefinedAreas = s == kDefinedAreasResin;
  } else {
    if (!popUp) return;
    if (optionMissing != nullptr) _PDELog(this, optionMissing);
  }
  if (label) label->setHidden(!hasResinPanel);
  if (popUp) popUp->setHidden(!hasResinPanel);
  tab->setHidden(!hasResinPanel || !hasDefinedAreas);
}

void Panel::updateFrontResinTab() {
  _PDEProlog(this, "updateFrontResinTab:");
  showResinControls(kSlots[0], kSlots[2], frontResinLabel, frontResinTab, "Option is nil");
  _PDEEpilog(this, "updateFrontResinTab:");
}

void Panel::updateBackResinTab() {
  _PDEProlog(this, "updateBackResinTab:");
  // Unlike the front's, a missing option is not logged.
  showResinControls(kSlots[1], kSlots[3], backResinLabel, backResinTab, nullptr);
  _PDEEpilog(this, "updateBackResinTab:");
}

void Panel::updateUI() {
  contract::updateUI(*this, kSlots, [this] {
    setAreasUI();
    updateFrontResinTab();
    updateBackResinTab();
  });
}

std::int64_t Panel::indexOfMarkedOption_forKey(ppd_option_t* option, const char* key) {
  return slots::indexOfMarkedOption(*this, option, key);
}

void Panel::setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option) {
  slots::setViewTitleByTag(*this, tag, option);
}

void Panel::initializeUI() {
  contract::initializeUI(*this, kSlots, [this] { queryResinAreasFromSettings(); });
}

std::shared_ptr<platform::Dictionary> Panel::summaryInfo() {
  return contract::summaryInfo(*this, kSlots, 4);
}

std::shared_ptr<PDEChoice> Panel::selectionForPopUp_withKey(
    const std::shared_ptr<platform::PopUpButton>& popUp, const Text& key) {
  return slots::selectionForPopUp(*this, popUp, key);
}

void Panel::changeFrontRibbonOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[0]);
}

void Panel::changeBackRibbonOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[1]);
}

void Panel::changeFrontResinOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[2]);
}

void Panel::changeBackResinOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[3]);
}

}  // namespace cardpanels
