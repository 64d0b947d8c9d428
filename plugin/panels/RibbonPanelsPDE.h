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
#include "platform/TabView.h"
#include "platform/TextField.h"
#include "platform/WillPrint.h"
#include "plugin/choices/PDEChoice.h"
#include "plugin/panels/AreaEditor.h"
#include "plugin/panels/OptionSlots.h"

namespace cardpanels {

/// The ribbon panel: a pop-up for each side's ribbon; for a ribbon with a resin panel, one for the
/// side's resin; and for resin in defined areas, the fields of the areas to include and exclude.
class RibbonPanelsPDE final : public platform::PrintPanel,
                              public platform::WillPrint,
                              public platform::NibOwner,
                              public std::enable_shared_from_this<RibbonPanelsPDE> {
 public:
  /// A new panel, nothing when the host's PPD has none of the four pick-one options.
  static std::shared_ptr<RibbonPanelsPDE> initWithCallback_andBundle(
      const std::shared_ptr<platform::CallbackObject>& callback,
      const std::shared_ptr<platform::Bundle>& bundle);

  std::shared_ptr<platform::View> panelView() override;
  platform::Text panelName() override;
  platform::Text panelKind() override;
  std::shared_ptr<platform::StringArray> supportedPPDOptionKeys() override;
  void willShow() override;
  bool shouldHide() override;
  bool shouldPrint() override;
  bool shouldShowHelp() override { return true; }
  void PPDOptionKeyValueDidChange_ppdChoice(const platform::Text& key,
                                            const platform::Text& choice) override;

  // The area editor.
  void queryResinArea_FieldX_FieldY_FieldWidth_FieldHeight(platform::Text& area, const AreaField& x,
                                                           const AreaField& y,
                                                           const AreaField& width,
                                                           const AreaField& height);
  void queryResinAreasFromUI();
  void queryResinAreasFromSettings();
  void saveResinArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight(
      platform::Text& area, const platform::Text& key, const AreaField& x, const AreaField& y,
      const AreaField& width, const AreaField& height);
  void saveResinAreasToSettings();
  void setAreaUI_Value(const platform::Text& key, const platform::Text& area);
  void setAreasUI();

  bool restoreValuesAndReturnError(platform::Text* error) override;
  bool saveValuesAndReturnError(platform::Text* error) override;
  void updateMarkedSelections() override;
  void updateFrontResinTab();
  void updateBackResinTab();
  void updateUI() override;
  std::int64_t indexOfMarkedOption_forKey(ppd_option_t* option, const char* key);
  void setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option);
  void initializeUI() override;
  std::shared_ptr<platform::Dictionary> summaryInfo() override;
  std::shared_ptr<PDEChoice> selectionForPopUp_withKey(
      const std::shared_ptr<platform::PopUpButton>& popUp, const platform::Text& key);
  void changeFrontRibbonOption(const std::shared_ptr<platform::Object>& sender);
  void changeBackRibbonOption(const std::shared_ptr<platform::Object>& sender);
  void changeFrontResinOption(const std::shared_ptr<platform::Object>& sender);
  void changeBackResinOption(const std::shared_ptr<platform::Object>& sender);

  // The way to keep settings before hosts kept the marks; empty in every panel.
  void getNonPPDSettingsFromPrintSettings() {}
  void writeNonPPDSettingsToPrintSettings() {}
  ppd_file_t* getPPDOnTiger() { return nullptr; }
  void getPPDSettingsFromPrintSettingsOnTiger() {}
  void writePPDSettingsToPrintSettingsOnTiger() {}

  std::string_view className() const override { return "RibbonPanelsPDE"; }
  std::span<const platform::Outlet> outlets() const override;
  std::span<const platform::Action> actions() const override;

  // State, open to the mechanisms that the panels share; nobody outside sees this class.
  std::shared_ptr<platform::CallbackObject> pdePluginCallbackObject;
  platform::Text thePDEName;
  std::shared_ptr<platform::Bundle> pluginBundle;
  std::shared_ptr<platform::View> pdeView;
  std::shared_ptr<platform::PopUpButton> frontRibbonPopUp;
  std::shared_ptr<platform::PopUpButton> backRibbonPopUp;
  std::shared_ptr<platform::PopUpButton> frontResinPopUp;
  std::shared_ptr<platform::PopUpButton> backResinPopUp;
  std::shared_ptr<platform::TextField> frontResinLabel;
  std::shared_ptr<platform::TextField> backResinLabel;
  std::shared_ptr<platform::TabView> frontResinTab;
  std::shared_ptr<platform::TabView> backResinTab;
  FieldsOfAreas resinAreaFields;
  bool useConstraintHandling = false;
  bool hasInited = false;
  ppd_file_t* ppd = nullptr;
  std::shared_ptr<platform::StringArray> supportedOptions;
  std::shared_ptr<ChoiceArray> frontRibbonChoices;
  std::shared_ptr<ChoiceArray> backRibbonChoices;
  std::shared_ptr<ChoiceArray> frontResinChoices;
  std::shared_ptr<ChoiceArray> backResinChoices;
  ppd_option_t* frontRibbonOption = nullptr;
  ppd_option_t* backRibbonOption = nullptr;
  ppd_option_t* frontResinOption = nullptr;
  ppd_option_t* backResinOption = nullptr;
  std::shared_ptr<PDEChoice> frontRibbonSelection;
  std::shared_ptr<PDEChoice> backRibbonSelection;
  std::shared_ptr<PDEChoice> frontResinSelection;
  std::shared_ptr<PDEChoice> backResinSelection;
  Areas resinAreas;

 private:
  RibbonPanelsPDE() = default;

  void storeTypedAreas();
  void showResinControls(const OptionSlot<RibbonPanelsPDE>& ribbon,
                         const OptionSlot<RibbonPanelsPDE>& resin,
                         const std::shared_ptr<platform::TextField>& label,
                         const std::shared_ptr<platform::TabView>& tab, const char* optionMissing);

  static const std::array<TabbedOptionSlot<RibbonPanelsPDE>, 4> kSlots;
  static const AreaSlots kAreaSlots;
  static const AreaEditor<RibbonPanelsPDE> kAreaEditor;
};

}  // namespace cardpanels
