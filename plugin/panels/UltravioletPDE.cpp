#include "plugin/panels/UltravioletPDE.h"

#include "plugin/panels/PanelContract.h"

namespace cardpanels {

using platform::Text;
using Panel = UltravioletPDE;

constexpr std::array<OptionSlot<Panel, std::weak_ptr<platform::PopUpButton>>, 4> Panel::kSlots{{
    {
        "frontUV",
        &Panel::frontUVPopUp,
        &Panel::frontUVChoices,
        &Panel::frontUVOption,
        &Panel::frontUVSelection,
        "Adding front UV option",
        "Front UV option not supported!",
        "initializing front uv",
        "disabling front uv",
        "Front UV selection not found!",
    },
    {
        "backUV",
        &Panel::backUVPopUp,
        &Panel::backUVChoices,
        &Panel::backUVOption,
        &Panel::backUVSelection,
        "Adding back UV option",
        "Back UV option not supported!",
        "initializing back uv",
        "disabling back uv",
        "Back UV selection not found!",
    },
    {
        "frontUVMAC",
        &Panel::frontMACPopup,
        &Panel::frontMACChoices,
        &Panel::frontMACOption,
        &Panel::frontMACSelection,
        "Adding front MAC option",
        "Front MAC option not supported!",
        "initializing front mac",
        "disabling front mac",
        "Front MAC selection not found!",
    },
    {
        "backUVMAC",
        &Panel::backMACPopup,
        &Panel::backMACChoices,
        &Panel::backMACOption,
        &Panel::backMACSelection,
        "Adding back MAC option",
        "Back MAC option not supported!",
        "initializing back mac",
        "disabling back mac",
        "Back MAC selection not found!",
    },
}};

std::span<const platform::Outlet> Panel::outlets() const {
  static constexpr std::array kOutlets{
      platform::outlet<&Panel::pdeView>("pdeView"),
      platform::outlet<&Panel::frontUVPopUp>("frontUVPopUp"),
      platform::outlet<&Panel::backUVPopUp>("backUVPopUp"),
      platform::outlet<&Panel::frontMACPopup>("frontMACPopup"),
      platform::outlet<&Panel::backMACPopup>("backMACPopup"),
  };
  return kOutlets;
}

std::span<const platform::Action> Panel::actions() const {
  static constexpr std::array kActions{
      platform::action<Panel, &Panel::changeFrontUVOption>("changeFrontUVOption:"),
      platform::action<Panel, &Panel::changeBackUVOption>("changeBackUVOption:"),
      platform::action<Panel, &Panel::changeFrontMACOption>("changeFrontMACOption:"),
      platform::action<Panel, &Panel::changeBackMACOption>("changeBackMACOption:"),
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
  return contract::panelView(*this, "UltravioletPanelPDE");
}

Text Panel::panelName() { return contract::panelName(*this, "UltravioletPanelName"); }

Text Panel::panelKind() { return contract::panelKind(*this, ".UltravioletKind"); }

std::shared_ptr<platform::StringArray> Panel::supportedPPDOptionKeys() {
  return contract::supportedPPDOptionKeys(*this, kSlots, 4);
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
  // Room for two at first, though four may come.
  return contract::summaryInfo(*this, kSlots, 2);
}

std::shared_ptr<PDEChoice> Panel::selectionForPopUp_withKey(
    const std::shared_ptr<platform::PopUpButton>& popUp, const Text& key) {
  return slots::selectionForPopUp(*this, popUp, key);
}

void Panel::changeFrontUVOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[0]);
}

void Panel::changeBackUVOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[1]);
}

void Panel::changeFrontMACOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[2]);
}

void Panel::changeBackMACOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[3]);
}

}  // namespace cardpanels
