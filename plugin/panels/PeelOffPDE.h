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

/// The peel-off panel: a pop-up for each side's peel-off mode, and under it, where that mode is the
/// one with defined areas, the fields of the side's peel-off and non-peel-off areas.
class PeelOffPanelPDE final : public platform::PrintPanel,
                              public platform::WillPrint,
                              public platform::NibOwner,
                              public std::enable_shared_from_this<PeelOffPanelPDE> {
 public:
  /// A new panel, nothing when the host's PPD has neither side's option.
  static std::shared_ptr<PeelOffPanelPDE> initWithCallback_andBundle(
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
  void queryPeelOffArea_FieldX_FieldY_FieldWidth_FieldHeight(platform::Text& area,
                                                             const AreaField& x, const AreaField& y,
                                                             const AreaField& width,
                                                             const AreaField& height);
  void queryPeelOffAreasFromUI();
  void queryPeelOffAreasFromSettings();
  void savePeelOffArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight(
      platform::Text& area, const platform::Text& key, const AreaField& x, const AreaField& y,
      const AreaField& width, const AreaField& height);
  void savePeelOffAreasToSettings();
  void setAreaUI_Value(const platform::Text& key, const platform::Text& area);
  void setAreasUI();

  bool restoreValuesAndReturnError(platform::Text* error) override;
  bool saveValuesAndReturnError(platform::Text* error) override;
  void updateMarkedSelections() override;
  void updateFrontPeelOffTab();
  void updateBackPeelOffTab();
  void updateUI() override;
  std::int64_t indexOfMarkedOption_forKey(ppd_option_t* option, const char* key);
  void setViewTitleByTag_fromOptions(std::int64_t tag, ppd_option_t* option);
  void initializeUI() override;
  std::shared_ptr<platform::Dictionary> summaryInfo() override;
  std::shared_ptr<PDEChoice> selectionForPopUp_withKey(
      const std::shared_ptr<platform::PopUpButton>& popUp, const platform::Text& key);
  void changeFrontPeelOffOption(const std::shared_ptr<platform::Object>& sender);
  void changeBackPeelOffOption(const std::shared_ptr<platform::Object>& sender);

  // The way to keep settings before hosts kept the marks; empty in every panel.
  void getNonPPDSettingsFromPrintSettings() {}
  void writeNonPPDSettingsToPrintSettings() {}
  ppd_file_t* getPPDOnTiger() { return nullptr; }
  void getPPDSettingsFromPrintSettingsOnTiger() {}
  void writePPDSettingsToPrintSettingsOnTiger() {}

  std::string_view className() const override { return "PeelOffPanelPDE"; }
  std::span<const platform::Outlet> outlets() const override;
  std::span<const platform::Action> actions() const override;

  // State, open to the mechanisms that the panels share; nobody outside sees this class.
  std::shared_ptr<platform::CallbackObject> pdePluginCallbackObject;
  platform::Text thePDEName;
  std::shared_ptr<platform::Bundle> pluginBundle;
  std::shared_ptr<platform::View> pdeView;
  std::shared_ptr<platform::PopUpButton> frontPeelOffPopUp;
  std::shared_ptr<platform::PopUpButton> backPeelOffPopUp;
  std::shared_ptr<platform::TabView> frontPeelOffArea;
  std::shared_ptr<platform::TabView> backPeelOffArea;
  FieldsOfAreas peelOffAreaFields;
  bool useConstraintHandling = false;
  bool hasInited = false;
  ppd_file_t* ppd = nullptr;
  std::shared_ptr<platform::StringArray> supportedOptions;
  std::shared_ptr<ChoiceArray> frontPeelOffChoices;
  std::shared_ptr<ChoiceArray> backPeelOffChoices;
  ppd_option_t* frontPeelOffOption = nullptr;
  ppd_option_t* backPeelOffOption = nullptr;
  std::shared_ptr<PDEChoice> frontPeelOffSelection;
  std::shared_ptr<PDEChoice> backPeelOffSelection;
  Areas peelOffAreas;

 private:
  PeelOffPanelPDE() = default;

  void storeTypedAreas();
  void showAreaTab(const OptionSlot<PeelOffPanelPDE>& slot,
                   const std::shared_ptr<platform::TabView>& tab);

  static const std::array<TabbedOptionSlot<PeelOffPanelPDE>, 2> kSlots;
  static const AreaSlots kAreaSlots;
  static const AreaEditor<PeelOffPanelPDE> kAreaEditor;
};

}  // namespace cardpanels
