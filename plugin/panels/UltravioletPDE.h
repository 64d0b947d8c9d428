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

/// The ultraviolet panel: a pop-up for the ultraviolet and one for the ultraviolet MAC option of
/// each side.
class UltravioletPDE final : public platform::PrintPanel,
                             public platform::NibOwner,
                             public std::enable_shared_from_this<UltravioletPDE> {
 public:
  /// A new panel, nothing when the host's PPD has none of the four options.
  static std::shared_ptr<UltravioletPDE> initWithCallback_andBundle(
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
  void changeFrontUVOption(const std::shared_ptr<platform::Object>& sender);
  void changeBackUVOption(const std::shared_ptr<platform::Object>& sender);
  void changeFrontMACOption(const std::shared_ptr<platform::Object>& sender);
  void changeBackMACOption(const std::shared_ptr<platform::Object>& sender);

  // The way to keep settings before hosts kept the marks; empty in every panel.
  void getNonPPDSettingsFromPrintSettings() {}
  void writeNonPPDSettingsToPrintSettings() {}
  ppd_file_t* getPPDOnTiger() { return nullptr; }
  void getPPDSettingsFromPrintSettingsOnTiger() {}
  void writePPDSettingsToPrintSettingsOnTiger() {}

  std::string_view className() const override { return "UltravioletPDE"; }
  std::span<const platform::Outlet> outlets() const override;
  std::span<const platform::Action> actions() const override;

  // State, open to the mechanisms that the panels share; nobody outside sees this class.
  std::shared_ptr<platform::CallbackObject> pdePluginCallbackObject;
  platform::Text thePDEName;
  std::shared_ptr<platform::Bundle> pluginBundle;
  // The host keeps the view alive, not this panel: once it lets go, the view is loaded anew, and
  // its pop-ups are not filled again.
  std::weak_ptr<platform::View> pdeView;
  std::weak_ptr<platform::PopUpButton> frontUVPopUp;
  std::weak_ptr<platform::PopUpButton> backUVPopUp;
  std::weak_ptr<platform::PopUpButton> frontMACPopup;
  std::weak_ptr<platform::PopUpButton> backMACPopup;
  bool useConstraintHandling = false;
  bool hasInited = false;
  ppd_file_t* ppd = nullptr;
  std::shared_ptr<platform::StringArray> supportedOptions;
  std::shared_ptr<ChoiceArray> frontUVChoices;
  std::shared_ptr<ChoiceArray> backUVChoices;
  ppd_option_t* frontUVOption = nullptr;
  ppd_option_t* backUVOption = nullptr;
  std::shared_ptr<PDEChoice> frontUVSelection;
  std::shared_ptr<PDEChoice> backUVSelection;
  std::shared_ptr<ChoiceArray> frontMACChoices;
  std::shared_ptr<ChoiceArray> backMACChoices;
  ppd_option_t* frontMACOption = nullptr;
  ppd_option_t* backMACOption = nullptr;
  std::shared_ptr<PDEChoice> frontMACSelection;
  std::shared_ptr<PDEChoice> backMACSelection;

 private:
  UltravioletPDE() = default;

  static const std::array<OptionSlot<UltravioletPDE, std::weak_ptr<platform::PopUpButton>>, 4>
      kSlots;
};

}  // namespace cardpanels
