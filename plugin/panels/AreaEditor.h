#pragma once

#include <cups/ppd.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>

#include "platform/ConstraintHandling.h"
#include "platform/NibOwner.h"
#include "platform/Text.h"
#include "platform/TextField.h"
#include "plugin/log/PDELogging.h"
#include "plugin/panels/OptionSlots.h"

namespace cardpanels {

using AreaField = std::shared_ptr<platform::TextField>;

/// The four fields that show one area.
struct AreaFields {
  AreaField x;
  AreaField y;
  AreaField width;
  AreaField height;
};

/// One of the twelve areas that a panel edits: the option that carries it, what the names of its
/// four outlets start with, and the log text of its value.
struct AreaSlot {
  const char* key;
  std::string_view outletStem;
  const char* valueText;
};

inline constexpr std::size_t kAreaCount = 12;

/// [side][kind][number], the number fastest: the order of every table and of every visit.
using AreaSlots = std::array<AreaSlot, kAreaCount>;
using FieldsOfAreas = std::array<AreaFields, kAreaCount>;
using Areas = std::array<platform::Text, kAreaCount>;

/// What two panels that edit areas have each for themselves. Their operations `setAreaUI_Value` and
/// `setAreasUI` share a name.
template <class Panel>
struct AreaEditor {
  const AreaSlots& slots;
  FieldsOfAreas Panel::*fields;
  Areas Panel::*areas;
  /// Makes the area of the fields.
  void (Panel::*queryArea)(platform::Text& area, const AreaField& x, const AreaField& y,
                           const AreaField& width, const AreaField& height);
  /// Requests the area of the fields for the key; `area` is what a refusal restores.
  void (Panel::*saveArea)(platform::Text& area, const platform::Text& key, const AreaField& x,
                          const AreaField& y, const AreaField& width, const AreaField& height);
  /// What a refusal of the first slot restores; null for no value.
  const char* carryOverAtStart;
};

/// A pick-one option with a side of the card, and so with the tab view of that side's areas.
template <class Panel>
struct TabbedOptionSlot : OptionSlot<Panel> {
  /// Shows or hides the tab view.
  void (Panel::*updateTab)();
};

/// The mechanism. Functions that visit slots do so in the table's order.
namespace areas {

/// The area that the fields' texts make; a missing field or one that is not ASCII counts as absent.
platform::Text areaInFields(const AreaField& x, const AreaField& y, const AreaField& width,
                            const AreaField& height);

/// Shows the area's four measurements, or four empty texts for no area. Does nothing when a field
/// is missing.
void showInFields(const platform::Text& area, const AreaFields& fields);

/// Appends all twelve keys, whether or not the PPD has the options.
template <class Panel>
void addSupportedKeys(const AreaEditor<Panel>& editor, platform::StringArray& keys) {
  for (const auto& slot : editor.slots) keys.append(slot.key);
}

/// Takes every area from its fields, then logs them all.
template <class Panel>
void takeFromFields(Panel& panel, const AreaEditor<Panel>& editor) {
  Areas& areas = panel.*editor.areas;
  for (std::size_t i = 0; i < kAreaCount; ++i) {
    const AreaFields& fields = (panel.*editor.fields)[i];
    (panel.*editor.queryArea)(areas[i], fields.x, fields.y, fields.width, fields.height);
  }
  for (std::size_t i = 0; i < kAreaCount; ++i) _PDELog(&panel, editor.slots[i].valueText, areas[i]);
}

/// Takes each area from the name of its option's marked choice; without one it stays.
template <class Panel>
void takeFromMarks(Panel& panel, const AreaEditor<Panel>& editor) {
  for (std::size_t i = 0; i < kAreaCount; ++i) {
    const ppd_choice_t* marked = ppdFindMarkedChoice(panel.ppd, editor.slots[i].key);
    if (marked == nullptr) continue;
    (panel.*editor.areas)[i] =
        platform::stringWithCString(&marked->choice[0], platform::StringEncoding::utf8);
  }
}

/// Asks the host for the fields' area, whether it changed or not. Granted, `area` becomes it;
/// refused, the fields show `area` again. Without constraint handling nobody is asked.
template <class Panel>
void requestArea(Panel& panel, platform::Text& area, const platform::Text& key, const AreaField& x,
                 const AreaField& y, const AreaField& width, const AreaField& height) {
  const platform::Text wanted = areaInFields(x, y, width, height);
  _PDELog(&panel, "area: %@", wanted);
  if (!panel.useConstraintHandling) {
    _PDELog(&panel, "Value saved: %@", wanted);
    area = wanted;
    return;
  }
  _PDELog(&panel, ">>> constraint");
  const auto host =
      std::dynamic_pointer_cast<platform::ConstraintHandling>(panel.pdePluginCallbackObject);
  if (host && host->willChangePPDOptionKeyValue_ppdChoice(key, wanted)) {
    _PDELog(&panel, "Request granted. Value saved: %@", wanted);
    area = wanted;
  } else {
    _PDELog(&panel, "Request not granted. Restoring value: %@", area);
    panel.setAreaUI_Value(key, area);
  }
  _PDELog(&panel, "<<< constraint");
}

/// Requests every area. The carry-over goes from slot to slot on purpose: a slot that the host
/// refuses takes the area of the slot before it.
template <class Panel>
void requestAll(Panel& panel, const AreaEditor<Panel>& editor) {
  platform::Text carryOver;
  if (editor.carryOverAtStart != nullptr) carryOver = editor.carryOverAtStart;
  for (std::size_t i = 0; i < kAreaCount; ++i) {
    const AreaFields& fields = (panel.*editor.fields)[i];
    (panel.*editor.saveArea)(carryOver, editor.slots[i].key, fields.x, fields.y, fields.width,
                             fields.height);
    (panel.*editor.areas)[i] = carryOver;
  }
}

/// Shows `area` in the fields of the slot with that key; an unknown key changes nothing.
template <class Panel>
void show(Panel& panel, const AreaEditor<Panel>& editor, const platform::Text& key,
          const platform::Text& area) {
  for (std::size_t i = 0; i < kAreaCount; ++i) {
    if (key != editor.slots[i].key) continue;
    const AreaFields shown = (panel.*editor.fields)[i];  // kept while others' code runs
    showInFields(area, shown);
    return;
  }
}

template <class Panel>
void showAll(Panel& panel, const AreaEditor<Panel>& editor) {
  for (std::size_t i = 0; i < kAreaCount; ++i) {
    panel.setAreaUI_Value(editor.slots[i].key, (panel.*editor.areas)[i]);
  }
}

/// What follows a change that the host reports: the tab of the option's side is shown or hidden, or
/// an area is kept as the host says it. The fields show it at the next `setAreasUI`.
template <class Panel>
void followHostChange(Panel& panel, const AreaEditor<Panel>& editor,
                      const TabbedOptionSlot<Panel>* option, const platform::Text& key,
                      const platform::Text& choice) {
  if (option != nullptr) {
    (panel.*option->updateTab)();
    return;
  }
  for (std::size_t i = 0; i < kAreaCount; ++i) {
    if (key == editor.slots[i].key) (panel.*editor.areas)[i] = choice;
  }
}

}  // namespace areas
}  // namespace cardpanels
