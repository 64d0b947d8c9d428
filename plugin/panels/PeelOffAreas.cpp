// The areas of the panel: their slots, and the area editor's operations with this panel's texts.
#include "plugin/panels/PeelOffPDE.h"

namespace cardpanels {

using platform::Text;
using Panel = PeelOffPanelPDE;

constexpr AreaSlots<Panel> Panel::kAreaSlots{{
    {
        "CustomfrontPeelOff1",
        areaField<&Panel::frontPeelOffField1_X>("frontPeelOffField1_X"),
        areaField<&Panel::frontPeelOffField1_Y>("frontPeelOffField1_Y"),
        areaField<&Panel::frontPeelOffField1_Width>("frontPeelOffField1_Width"),
        areaField<&Panel::frontPeelOffField1_Height>("frontPeelOffField1_Height"),
        "peeloffArea[0][0][0]::%@",
    },
    {
        "CustomfrontPeelOff2",
        areaField<&Panel::frontPeelOffField2_X>("frontPeelOffField2_X"),
        areaField<&Panel::frontPeelOffField2_Y>("frontPeelOffField2_Y"),
        areaField<&Panel::frontPeelOffField2_Width>("frontPeelOffField2_Width"),
        areaField<&Panel::frontPeelOffField2_Height>("frontPeelOffField2_Height"),
        "peeloffArea[0][0][1]::%@",
    },
    {
        "CustomfrontPeelOff3",
        areaField<&Panel::frontPeelOffField3_X>("frontPeelOffField3_X"),
        areaField<&Panel::frontPeelOffField3_Y>("frontPeelOffField3_Y"),
        areaField<&Panel::frontPeelOffField3_Width>("frontPeelOffField3_Width"),
        areaField<&Panel::frontPeelOffField3_Height>("frontPeelOffField3_Height"),
        "peeloffArea[0][0][2]::%@",
    },
    {
        "CustomfrontNonPeelOff1",
        areaField<&Panel::frontNonPeelOffField1_X>("frontNonPeelOffField1_X"),
        areaField<&Panel::frontNonPeelOffField1_Y>("frontNonPeelOffField1_Y"),
        areaField<&Panel::frontNonPeelOffField1_Width>("frontNonPeelOffField1_Width"),
        areaField<&Panel::frontNonPeelOffField1_Height>("frontNonPeelOffField1_Height"),
        "peeloffArea[0][1][0]::%@",
    },
    {
        "CustomfrontNonPeelOff2",
        areaField<&Panel::frontNonPeelOffField2_X>("frontNonPeelOffField2_X"),
        areaField<&Panel::frontNonPeelOffField2_Y>("frontNonPeelOffField2_Y"),
        areaField<&Panel::frontNonPeelOffField2_Width>("frontNonPeelOffField2_Width"),
        areaField<&Panel::frontNonPeelOffField2_Height>("frontNonPeelOffField2_Height"),
        "peeloffArea[0][1][1]::%@",
    },
    {
        "CustomfrontNonPeelOff3",
        areaField<&Panel::frontNonPeelOffField3_X>("frontNonPeelOffField3_X"),
        areaField<&Panel::frontNonPeelOffField3_Y>("frontNonPeelOffField3_Y"),
        areaField<&Panel::frontNonPeelOffField3_Width>("frontNonPeelOffField3_Width"),
        areaField<&Panel::frontNonPeelOffField3_Height>("frontNonPeelOffField3_Height"),
        "peeloffArea[0][1][2]::%@",
    },
    {
        "CustombackPeelOff1",
        areaField<&Panel::backPeelOffField1_X>("backPeelOffField1_X"),
        areaField<&Panel::backPeelOffField1_Y>("backPeelOffField1_Y"),
        areaField<&Panel::backPeelOffField1_Width>("backPeelOffField1_Width"),
        areaField<&Panel::backPeelOffField1_Height>("backPeelOffField1_Height"),
        "peeloffArea[1][0][0]::%@",
    },
    {
        "CustombackPeelOff2",
        areaField<&Panel::backPeelOffField2_X>("backPeelOffField2_X"),
        areaField<&Panel::backPeelOffField2_Y>("backPeelOffField2_Y"),
        areaField<&Panel::backPeelOffField2_Width>("backPeelOffField2_Width"),
        areaField<&Panel::backPeelOffField2_Height>("backPeelOffField2_Height"),
        "peeloffArea[1][0][1]::%@",
    },
    {
        "CustombackPeelOff3",
        areaField<&Panel::backPeelOffField3_X>("backPeelOffField3_X"),
        areaField<&Panel::backPeelOffField3_Y>("backPeelOffField3_Y"),
        areaField<&Panel::backPeelOffField3_Width>("backPeelOffField3_Width"),
        areaField<&Panel::backPeelOffField3_Height>("backPeelOffField3_Height"),
        "peeloffArea[1][0][2]::%@",
    },
    {
        "CustombackNonPeelOff1",
        areaField<&Panel::backNonPeelOffField1_X>("backNonPeelOffField1_X"),
        areaField<&Panel::backNonPeelOffField1_Y>("backNonPeelOffField1_Y"),
        areaField<&Panel::backNonPeelOffField1_Width>("backNonPeelOffField1_Width"),
        areaField<&Panel::backNonPeelOffField1_Height>("backNonPeelOffField1_Height"),
        "peeloffArea[1][1][0]::%@",
    },
    {
        "CustombackNonPeelOff2",
        areaField<&Panel::backNonPeelOffField2_X>("backNonPeelOffField2_X"),
        areaField<&Panel::backNonPeelOffField2_Y>("backNonPeelOffField2_Y"),
        areaField<&Panel::backNonPeelOffField2_Width>("backNonPeelOffField2_Width"),
        areaField<&Panel::backNonPeelOffField2_Height>("backNonPeelOffField2_Height"),
        "peeloffArea[1][1][1]::%@",
    },
    {
        "CustombackNonPeelOff3",
        areaField<&Panel::backNonPeelOffField3_X>("backNonPeelOffField3_X"),
        areaField<&Panel::backNonPeelOffField3_Y>("backNonPeelOffField3_Y"),
        areaField<&Panel::backNonPeelOffField3_Width>("backNonPeelOffField3_Width"),
        areaField<&Panel::backNonPeelOffField3_Height>("backNonPeelOffField3_Height"),
        "peeloffArea[1][1][2]::%@",
    },
}};

constexpr AreaEditor<Panel> Panel::kAreaEditor{
    kAreaSlots,
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
  static constexpr auto kOutlets = areas::outlets(kOwnOutlets, kAreaSlots);
  return kOutlets;
}

void Panel::queryPeelOffArea_FieldX_FieldY_FieldWidth_FieldHeight(Text& area, const AreaField& x,
                                                                  const AreaField& y,
                                                                  const AreaField& width,
                                                                  const AreaField& height) {
  _PDEProlog(this, "queryPeelOffArea:");
  area = areas::areaInFields({x, y, width, height});
  _PDEEpilog(this, "queryPeelOffArea:(%@)", area);
}

// The two names differ on purpose.
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
  areas::requestArea(*this, area, key, {x, y, width, height});
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
