#include "plugin/panels/CardHandlingPDE.h"

#include "plugin/panels/PanelContract.h"

namespace cardpanels {

using platform::Text;
using Panel = CardHandlingPDE;

constexpr std::array<OptionSlot<Panel>, 4> Panel::kSlots{{
    {
        "frontRotation",
        &Panel::frontRotatePopUp,
        &Panel::frontRotateChoices,
        &Panel::frontRotateOption,
        &Panel::frontRotateSelection,
        "Adding front rotate option",
        "Front rotate option not supported!",
        "initializing front rotate",
        "disabling front rotate",
        "Front rotate selection not found!",
    },
    {
        "backRotation",
        &Panel::backRotatePopUp,
        &Panel::backRotateChoices,
        &Panel::backRotateOption,
        &Panel::backRotateSelection,
        "Adding back rotate option",
        "Back rotate option not supported!",
        "initializing back rotate",
        "disabling back rotate",
        "Back rotate selection not found!",
    },
    {
        "entryCardFlip",
        &Panel::cardEntryPopUp,
        &Panel::cardEntryChoices,
        &Panel::cardEntryOption,
        &Panel::cardEntrySelection,
        "Adding card entry option",
        "Card entry option not supported!",
        "initializing card entry",
        "disabling card entry",
        "Card entry selection not found!",
    },
    {
        "magEncodeCardFlip",
        &Panel::magEncodePopUp,
        &Panel::magEncodeChoices,
        &Panel::magEncodeOption,
        &Panel::magEncodeSelection,
        "Adding mag encode flip option",
        "Card mag encode flip not supported!",
        "initializing mag encode",
        "disabling mag encode",
        "Mag encode selection not found!",
    },
}};

std::span<const platform::Outlet> Panel::outlets() const {
  static constexpr std::array kOutlets{
      platform::outlet<&Panel::pdeView>("pdeView"),
      platform::outlet<&Panel::frontRotatePopUp>("frontRotatePopUp"),
      platform::outlet<&Panel::backRotatePopUp>("backRotatePopUp"),
      platform::outlet<&Panel::cardEntryPopUp>("cardEntryPopUp"),
      platform::outlet<&Panel::magEncodePopUp>("magEncodePopUp"),
  };
  return kOutlets;
}

std::span<const platform::Action> Panel::actions() const {
  static constexpr std::array kActions{
      platform::action<Panel, &Panel::changeFrontRotateOption>("changeFrontRotateOption:"),
      platform::action<Panel, &Panel::changeBackRotateOption>("changeBackRotateOption:"),
      platform::action<Panel, &Panel::changeCardEntryOption>("changeCardEntryOption:"),
      platform::action<Panel, &Panel::changeMagEncodeOption>("changeMagEncodeOption:"),
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
  return contract::panelView(*this, "CardHandlingPDE");
}

Text Panel::panelName() { return contract::panelName(*this, "CardHandlingPanelName"); }

Text Panel::panelKind() { return contract::panelKind(*this, ".CardHandlingKind"); }

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

void Panel::initializeUI() {
  contract::initializeUI(*this, kSlots, [this] {
    // The magnetic-encoding pop-up is filled a second time.
    slots::initializePopUp(*this, kSlots[3]);
  });
}

std::shared_ptr<platform::Dictionary> Panel::summaryInfo() {
  return contract::summaryInfo(*this, kSlots, 4);
}

std::shared_ptr<PDEChoice> Panel::selectionForPopUp_withKey(
    const std::shared_ptr<platform::PopUpButton>& popUp, const Text& key) {
  return slots::selectionForPopUp(*this, popUp, key);
}

void Panel::changeFrontRotateOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[0]);
}

void Panel::changeBackRotateOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[1]);
}

void Panel::changeCardEntryOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[2]);
}

void Panel::changeMagEncodeOption(const std::shared_ptr<platform::Object>& /*sender*/) {
  slots::changeOption(*this, kSlots[3]);
}

}  // namespace cardpanels
