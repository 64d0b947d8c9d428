// The areas of the panel: their slots, and the area editor's operations with this panel's texts.
#include "plugin/panels/AreaOutlets.h"
#include "plugin/panels/PeelOffPDE.h"

namespace cardpanels {

using platform::Text;
using Panel = PeelOffPanelPDE;

constexpr AreaSlots Panel::kAreaSlots{{
    {"CustomfrontPeelOff1", "frontPeelOffField1", "peeloffArea[0][0][0]::%@"},
    {"CustomfrontPeelOff2", "frontPeelOffField2", "peeloffArea[0][0][1]::%@"},
    {"CustomfrontPeelOff3", "frontPeelOffField3", "peeloffArea[0][0][2]::%@"},
    {"CustomfrontNonPeelOff1", "frontNonPeelOffField1", "peeloffArea[0][1][0]::%@"},
    {"CustomfrontNonPeelOff2", "frontNonPeelOffField2", "peeloffArea[0][1][1]::%@"},
    {"CustomfrontNonPeelOff3", "frontNonPeelOffField3", "peeloffArea[0][1][2]::%@"},
    {"CustombackPeelOff1", "backPeelOffField1", "peeloffArea[1][0][0]::%@"},
    {"CustombackPeelOff2", "backPeelOffField2", "peeloffArea[1][0][1]::%@"},
    {"CustombackPeelOff3", "backPeelOffField3", "peeloffArea[1][0][2]::%@"},
    {"CustombackNonPeelOff1", "backNonPeelOffField1", "peeloffArea[1][1][0]::%@"},
    {"CustombackNonPeelOff2", "backNonPeelOffField2", "peeloffArea[1][1][1]::%@"},
    {"CustombackNonPeelOff3", "backNonPeelOffField3", "peeloffArea[1][1][2]::%@"},
}};

constexpr AreaEditor<Panel> Panel::kAreaEditor{
    kAreaSlots,
    &Panel::peelOffAreaFields,
    &Panel::peelOffAreas,
    &Panel::queryPeelOffArea_FieldX_FieldY_FieldWidth_FieldHeight,
    &Panel::savePeelOffArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight,
    "Default",
};

std::span<const platform::Outlet> Panel::outlets() const {
  static constexpr std::array kOwnOutlets{
      platform::outlet<&Panel::pdeView>("pdeView"),
      platform::outlet<&Panel::frontPeelOffPopUp>("frontPeelOffPopUp"),
      platform::outlet<&Panel::backPeelOffPopUp>("backPeelOffPopUp"),
      platform::outlet<&Panel::frontPeelOffArea>("frontPeelOffArea"),
      platform::outlet<&Panel::backPeelOffArea>("backPeelOffArea"),
  };
  static constexpr areas::OutletNames kAreaOutletNames(kAreaSlots);
  static constexpr auto kOutlets =
      areas::outlets<&Panel::peelOffAreaFields>(kOwnOutlets, kAreaOutletNames);
  return kOutlets;
}

void Panel::queryPeelOffArea_FieldX_FieldY_FieldWidth_FieldHeight(Text& area, const AreaField& x,
                                                                  const AreaField& y,
                                                                  const AreaField& width,
                                                                  const AreaField& height) {
  _PDEProlog(this, "queryPeelOffArea:");
  area = areas::areaInFields(x, y, width, height);
  _PDEEpilog(this, "queryPeelOffArea:(%@)", area);
}

void Panel::queryPeelOffAreasFromUI() {
  _PDEProlog(this, "queryPeelOffAreasUI:");
  areas::takeFromFields(*this, kAreaEditor);
  _PDEEpilog(this, "queryPeelOffAreasFromUI:");
}

void Panel::queryPeelOffAreasFromSettings() {
  _PDEProlog(this, "queryPeelOffAreasFromSettings:");
  areas::takeFromMarks(*this, kAreaEditor);
  _PDEEpilog(this, "queryPeelOffAreasFromSettings:");
}

void Panel::savePeelOffArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight(
    Text& area, const Text& key, const AreaField& x, const AreaField& y, const AreaField& width,
    const AreaField& height) {
  _PDEProlog(this, "savePeelOffArea: (%@)(%@)(%@)(%@)(%@)", key, x, y, width, height);
  areas::requestArea(*this, area, key, x, y, width, height);
  _PDEEpilog(this, "savePeelOffArea: (%@)", area);
}

void Panel::savePeelOffAreasToSettings() {
  _PDEProlog(this, "savePeelOffAreasToSettings:");
  areas::requestAll(*this, kAreaEditor);
  _PDEEpilog(this, "savePeelOffAreasToSettings:");
}

void Panel::setAreaUI_Value(const Text& key, const Text& area) {
  _PDEProlog(this, "setAreaUI:(%@)(%@)", key, area);
  areas::show(*this, kAreaEditor, key, area);
  _PDEEpilog(this, "setAreaUI:(%@)(%@)", key, area);
}

void Panel::setAreasUI() {
  _PDEProlog(this, "setAreasUI");
  areas::showAll(*this, kAreaEditor);
  _PDEEpilog(this, "setAreasUI");
}

}  // namespace cardpanels
