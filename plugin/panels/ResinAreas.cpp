// The areas of the panel: their slots, and the area editor's operations with this panel's texts.
#include "plugin/panels/AreaOutlets.h"
#include "plugin/panels/RibbonPanelsPDE.h"

namespace cardpanels {

using platform::Text;
using Panel = RibbonPanelsPDE;

constexpr AreaSlots Panel::kAreaSlots{{
    {"frontResinInclude1", "frontResinIncludeField1", "resinArea[0][0][0]::%@"},
    {"frontResinInclude2", "frontResinIncludeField2", "resinArea[0][0][1]::%@"},
    {"frontResinInclude3", "frontResinIncludeField3", "resinArea[0][0][2]::%@"},
    {"frontResinExclude1", "frontResinExcludeField1", "resinArea[0][1][0]::%@"},
    {"frontResinExclude2", "frontResinExcludeField2", "resinArea[0][1][1]::%@"},
    {"frontResinExclude3", "frontResinExcludeField3", "resinArea[0][1][2]::%@"},
    {"backResinInclude1", "backResinIncludeField1", "resinArea[1][0][0]::%@"},
    {"backResinInclude2", "backResinIncludeField2", "resinArea[1][0][1]::%@"},
    {"backResinInclude3", "backResinIncludeField3", "resinArea[1][0][2]::%@"},
    {"backResinExclude1", "backResinExcludeField1", "resinArea[1][1][0]::%@"},
    {"backResinExclude2", "backResinExcludeField2", "resinArea[1][1][1]::%@"},
    {"backResinExclude3", "backResinExcludeField3", "resinArea[1][1][2]::%@"},
}};

constexpr AreaEditor<Panel> Panel::kAreaEditor{
    kAreaSlots,
    &Panel::resinAreaFields,
    &Panel::resinAreas,
    &Panel::queryResinArea_FieldX_FieldY_FieldWidth_FieldHeight,
    &Panel::saveResinArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight,
    nullptr,
};

std::span<const platform::Outlet> Panel::outlets() const {
  static constexpr std::array kOwnOutlets{
      platform::outlet<&Panel::pdeView>("pdeView"),
      platform::outlet<&Panel::frontRibbonPopUp>("frontRibbonPopUp"),
      platform::outlet<&Panel::backRibbonPopUp>("backRibbonPopUp"),
      platform::outlet<&Panel::frontResinPopUp>("frontResinPopUp"),
      platform::outlet<&Panel::backResinPopUp>("backResinPopUp"),
      platform::outlet<&Panel::frontResinLabel>("frontResinLabel"),
      platform::outlet<&Panel::backResinLabel>("backResinLabel"),
      platform::outlet<&Panel::frontResinTab>("frontResinTab"),
      platform::outlet<&Panel::backResinTab>("backResinTab"),
  };
  static constexpr areas::OutletNames kAreaOutletNames(kAreaSlots);
  static constexpr auto kOutlets =
      areas::outlets<&Panel::resinAreaFields>(kOwnOutlets, kAreaOutletNames);
  return kOutlets;
}

void Panel::queryResinArea_FieldX_FieldY_FieldWidth_FieldHeight(Text& area, const AreaField& x,
                                                                const AreaField& y,
                                                                const AreaField& width,
                                                                const AreaField& height) {
  _PDEProlog(this, "queryResinArea:");
  area = areas::areaInFields(x, y, width, height);
  _PDEEpilog(this, "queryResinArea:(%@)", area);
}

void Panel::queryResinAreasFromUI() {
  _PDEProlog(this, "queryResinAreasUI:");
  areas::takeFromFields(*this, kAreaEditor);
  _PDEEpilog(this, "queryResinAreasFromUI:");
}

void Panel::queryResinAreasFromSettings() {
  _PDEProlog(this, "queryResingAreasFromSettings:");
  areas::takeFromMarks(*this, kAreaEditor);
  _PDEEpilog(this, "queryResinAreasFromSettings:");
}

void Panel::saveResinArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight(Text& area, const Text& key,
                                                                        const AreaField& x,
                                                                        const AreaField& y,
                                                                        const AreaField& width,
                                                                        const AreaField& height) {
  _PDEProlog(this, "saveResinArea: (%@)(%@)(%@)(%@)", x, y, width, height);
  areas::requestArea(*this, area, key, x, y, width, height);
  _PDEEpilog(this, "saveResinArea:");
}

void Panel::saveResinAreasToSettings() {
  _PDEProlog(this, "saveResinAreasToSettings:");
  areas::requestAll(*this, kAreaEditor);
  _PDEEpilog(this, "saveResinAreasToSettings:");
}

void Panel::setAreaUI_Value(const Text& key, const Text& area) {
  _PDEProlog(this, "setAreaUI:(%@, %@)", key, area);
  areas::show(*this, kAreaEditor, key, area);
  _PDEEpilog(this, "setAreaUI:");
}

void Panel::setAreasUI() {
  _PDEProlog(this, "setAreasUI");
  areas::showAll(*this, kAreaEditor);
  _PDEEpilog(this, "setAreasUI");
}

}  // namespace cardpanels
