#pragma once

#include <cups/ppd.h>

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "platform/Bundle.h"
#include "platform/CallbackObject.h"
#include "platform/NibOwner.h"
#include "platform/PopUpButton.h"
#include "platform/PrintPanel.h"
#include "plugin/choices/PDEChoice.h"
#include "plugin/panels/OptionSlots.h"

namespace cardpanels {

/// The card handling panel: a pop-up for each side's rotation, for the card flip at entry and for
/// the one for magnetic encoding.
class CardHandlingPDE final : public platform::PrintPanel,
                              public platform::NibOwner,
                              public std::enable_shared_from_this<CardHandlingPDE> {
 public:
  /// A new panel, nothing when the host's PPD has none of the four options.
  static std::shared_ptr<CardHandlingPDE> initWithCallback_andBundle(
      const std::shared_ptr<platform::CallbackObject>& callback,
      const std::shared_ptr<platform::Bundle>& bundle);

  std::shared_ptr<platform::View> panelView() override;
  platform::Text panelName() override;
  platform::Text panelKind() override;
  std::shared_ptr<platform::StringArray> supportedPPDOptionKeys() override;
  void willShow() override;
  bool shouldHide() override;
  bool shouldShowHelp() override { return true; }
  void PPDOptionKeyValueDidChange_ppdChoice(const platform::Text& key,
                                            const platform::Text& choice) override;
  bool restoreValuesAndReturnError(platform::Text* error) override;
  bool saveValuesAndReturnError(platform::Text* error) override;
  void updateMarkedSelections() override;
  void updateUI() override;
  std::int64_t indexOfMarkedOption_forKey(ppd_option_t* option, const char* key);
  void setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option);
  void initializeUI() override;
  std::shared_ptr<platform::Dictionary> summaryInfo() override;
  std::shared_ptr<PDEChoice> selectionForPopUp_withKey(
      const std::shared_ptr<platform::PopUpButton>& popUp, const platform::Text& key);
  void changeFrontRotateOption(const std::shared_ptr<platform::Object>& sender);
  void changeBackRotateOption(const std::shared_ptr<platform::Object>& sender);
  void changeCardEntryOption(const std::shared_ptr<platform::Object>& sender);
  void changeMagEncodeOption(const std::shared_ptr<platform::Object>& sender);

  // The way to keep settings before hosts kept the marks; empty in every panel.
  void getNonPPDSettingsFromPrintSettings() {}
  void writeNonPPDSettingsToPrintSettings() {}
  ppd_file_t* getPPDOnTiger() { return nullptr; }
  void getPPDSettingsFromPrintSettingsOnTiger() {}
  void writePPDSettingsToPrintSettingsOnTiger() {}

  std::string_view className() const override { return "CardHandlingPDE"; }
  std::span<const platform::Outlet> outlets() const override;
  std::span<const platform::Action> actions() const override;

  // State, open to the mechanisms that the panels share; nobody outside sees this class.
  std::shared_ptr<platform::CallbackObject> pdePluginCallbackObject;
  platform::Text thePDEName;
  std::shared_ptr<platform::Bundle> pluginBundle;
  std::shared_ptr<platform::View> pdeView;
  std::shared_ptr<platform::PopUpButton> frontRotatePopUp;
  std::shared_ptr<platform::PopUpButton> backRotatePopUp;
  std::shared_ptr<platform::PopUpButton> cardEntryPopUp;
  std::shared_ptr<platform::PopUpButton> magEncodePopUp;
  bool useConstraintHandling = false;
  bool hasInited = false;
  ppd_file_t* ppd = nullptr;
  std::shared_ptr<platform::StringArray> supportedOptions;
  std::shared_ptr<ChoiceArray> frontRotateChoices;
  std::shared_ptr<ChoiceArray> backRotateChoices;
  std::shared_ptr<ChoiceArray> cardEntryChoices;
  std::shared_ptr<ChoiceArray> magEncodeChoices;
  ppd_option_t* frontRotateOption = nullptr;
  ppd_option_t* backRotateOption = nullptr;
  ppd_option_t* cardEntryOption = nullptr;
  ppd_option_t* magEncodeOption = nullptr;
  std::shared_ptr<PDEChoice> frontRotateSelection;
  std::shared_ptr<PDEChoice> backRotateSelection;
  std::shared_ptr<PDEChoice> cardEntrySelection;
  std::shared_ptr<PDEChoice> magEncodeSelection;

 private:
  CardHandlingPDE() = default;

  static const std::array<OptionSlot<CardHandlingPDE>, 4> kSlots;
};

}  // namespace cardpanels
