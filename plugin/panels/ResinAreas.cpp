// The areas of the panel: their slots, and the area editor's operations with this panel's texts.
#include "plugin/panels/RibbonPanelsPDE.h"

namespace cardpanels {

using platform::Text;
using Panel = RibbonPanelsPDE;

constexpr AreaSlots<Panel> Panel::kAreaSlots{{
    {
        "frontResinInclude1",
        areaField<&Panel::frontResinIncludeField1_X>("frontResinIncludeField1_X"),
        areaField<&Panel::frontResinIncludeField1_Y>("frontResinIncludeField1_Y"),
        areaField<&Panel::frontResinIncludeField1_Width>("frontResinIncludeField1_Width"),
        areaField<&Panel::frontResinIncludeField1_Height>("frontResinIncludeField1_Height"),
        "resinArea[0][0][0]::%@",
    },
    {
        "frontResinInclude2",
        areaField<&Panel::frontResinIncludeField2_X>("frontResinIncludeField2_X"),
        areaField<&Panel::frontResinIncludeField2_Y>("frontResinIncludeField2_Y"),
        areaField<&Panel::frontResinIncludeField2_Width>("frontResinIncludeField2_Width"),
        areaField<&Panel::frontResinIncludeField2_Height>("frontResinIncludeField2_Height"),
        "resinArea[0][0][1]::%@",
    },
    {
        "frontResinInclude3",
        areaField<&Panel::frontResinIncludeField3_X>("frontResinIncludeField3_X"),
        areaField<&Panel::frontResinIncludeField3_Y>("frontResinIncludeField3_Y"),
        areaField<&Panel::frontResinIncludeField3_Width>("frontResinIncludeField3_Width"),
        areaField<&Panel::frontResinIncludeField3_Height>("frontResinIncludeField3_Height"),
        "resinArea[0][0][2]::%@",
    },
    {
        "frontResinExclude1",
        areaField<&Panel::frontResinExcludeField1_X>("frontResinExcludeField1_X"),
        areaField<&Panel::frontResinExcludeField1_Y>("frontResinExcludeField1_Y"),
        areaField<&Panel::frontResinExcludeField1_Width>("frontResinExcludeField1_Width"),
        areaField<&Panel::frontResinExcludeField1_Height>("frontResinExcludeField1_Height"),
        "resinArea[0][1][0]::%@",
    },
    {
        "frontResinExclude2",
        areaField<&Panel::frontResinExcludeField2_X>("frontResinExcludeField2_X"),
        areaField<&Panel::frontResinExcludeField2_Y>("frontResinExcludeField2_Y"),
        areaField<&Panel::frontResinExcludeField2_Width>("frontResinExcludeField2_Width"),
        areaField<&Panel::frontResinExcludeField2_Height>("frontResinExcludeField2_Height"),
        "resinArea[0][1][1]::%@",
    },
    {
        "frontResinExclude3",
        areaField<&Panel::frontResinExcludeField3_X>("frontResinExcludeField3_X"),
        areaField<&Panel::frontResinExcludeField3_Y>("frontResinExcludeField3_Y"),
        areaField<&Panel::frontResinExcludeField3_Width>("frontResinExcludeField3_Width"),
        areaField<&Panel::frontResinExcludeField3_Height>("frontResinExcludeField3_Height"),
        "resinArea[0][1][2]::%@",
    },
    {
        "backResinInclude1",
        areaField<&Panel::backResinIncludeField1_X>("backResinIncludeField1_X"),
        areaField<&Panel::backResinIncludeField1_Y>("backResinIncludeField1_Y"),
        areaField<&Panel::backResinIncludeField1_Width>("backResinIncludeField1_Width"),
        areaField<&Panel::backResinIncludeField1_Height>("backResinIncludeField1_Height"),
        "resinArea[1][0][0]::%@",
    },
    {
        "backResinInclude2",
        areaField<&Panel::backResinIncludeField2_X>("backResinIncludeField2_X"),
        areaField<&Panel::backResinIncludeField2_Y>("backResinIncludeField2_Y"),
        areaField<&Panel::backResinIncludeField2_Width>("backResinIncludeField2_Width"),
        areaField<&Panel::backResinIncludeField2_Height>("backResinIncludeField2_Height"),
        "resinArea[1][0][1]::%@",
    },
    {
        "backResinInclude3",
        areaField<&Panel::backResinIncludeField3_X>("backResinIncludeField3_X"),
        areaField<&Panel::backResinIncludeField3_Y>("backResinIncludeField3_Y"),
        areaField<&Panel::backResinIncludeField3_Width>("backResinIncludeField3_Width"),
        areaField<&Panel::backResinIncludeField3_Height>("backResinIncludeField3_Height"),
        "resinArea[1][0][2]::%@",
    },
    {
        "backResinExclude1",
        areaField<&Panel::backResinExcludeField1_X>("backResinExcludeField1_X"),
        areaField<&Panel::backResinExcludeField1_Y>("backResinExcludeField1_Y"),
        areaField<&Panel::backResinExcludeField1_Width>("backResinExcludeField1_Width"),
        areaField<&Panel::backResinExcludeField1_Height>("backResinExcludeField1_Height"),
        "resinArea[1][1][0]::%@",
    },
    {
        "backResinExclude2",
        areaField<&Panel::backResinExcludeField2_X>("backResinExcludeField2_X"),
        areaField<&Panel::backResinExcludeField2_Y>("backResinExcludeField2_Y"),
        areaField<&Panel::backResinExcludeField2_Width>("backResinExcludeField2_Width"),
        areaField<&Panel::backResinExcludeField2_Height>("backResinExcludeField2_Height"),
        "resinArea[1][1][1]::%@",
    },
    {
        "backResinExclude3",
        areaField<&Panel::backResinExcludeField3_X>("backResinExcludeField3_X"),
        areaField<&Panel::backResinExcludeField3_Y>("backResinExcludeField3_Y"),
        areaField<&Panel::backResinExcludeField3_Width>("backResinExcludeField3_Width"),
        areaField<&Panel::backResinExcludeField3_Height>("backResinExcludeField3_Height"),
        "resinArea[1][1][2]::%@",
    },
}};

constexpr AreaEditor<Panel> Panel::kAreaEditor{
    kAreaSlots,
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
  static constexpr auto kOutlets = areas::outlets(kOwnOutlets, kAreaSlots);
  return kOutlets;
}

void Panel::queryResinArea_FieldX_FieldY_FieldWidth_FieldHeight(Text& area, const AreaField& x,
                                                                const AreaField& y,
                                                                const AreaField& width,
                                                                const AreaField& height) {
  _PDEProlog(this, "queryResinArea:");
  area = areas::areaInFields({x, y, width, height});
  _PDEEpilog(this, "queryResinArea:(%@)", area);
}

// The two names differ on purpose.
void Panel::queryResinAreasFromUI() {
  _PDEProlog(this, "queryResinAreasUI:");
  areas::takeFromFields(*this, kAreaEditor);
  _PDEEpilog(this, "queryResinAreasFromUI:");
}

// The first text's "Resing" is meant.
void Panel::queryResinAreasFromSettings() {
  _PDEProlog(this, "queryResingAreasFromSettings:");
  areas::takeFromMarks(*this, kAreaEditor);
  _PDEEpilog(this, "queryResinAreasFromSettings:");
}

// Neither the key nor the saved area is logged; that is meant.
void Panel::saveResinArea_FieldKey_FieldX_FieldY_FieldWidth_FieldHeight(Text& area, const Text& key,
                                                                        const AreaField& x,
                                                                        const AreaField& y,
                                                                        const AreaField& width,
                                                                        const AreaField& height) {
  _PDEProlog(this, "saveResinArea: (%@)(%@)(%@)(%@)", x, y, width, height);
  areas::requestArea(*this, area, key, {x, y, width, height});
  _PDEEpilog(this, "saveResinArea:");
}

void Panel::saveResinAreasToSettings() {
  _PDEProlog(this, "saveResinAreasToSettings:");
  areas::requestAll(*this, kAreaEditor);
  _PDEEpilog(this, "saveResinAreasToSettings:");
}

// The second text tells nothing; that is meant.
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
