#pragma once

#include <cups/ppd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/Array.h"
#include "platform/ConstraintHandling.h"
#include "platform/Dictionary.h"
#include "platform/NibOwner.h"
#include "platform/PopUpButton.h"
#include "platform/TextField.h"
#include "plugin/choices/PDEChoice.h"
#include "plugin/choices/Utility.h"
#include "plugin/log/PDELogging.h"

namespace cardpanels {

/// One pick-one option that a panel edits: its keyword, the members of the panel that belong to it,
/// and its log texts. `PopUp` is a strong or a weak pointer, as the panel holds its pop-ups.
template <class Panel, class PopUp = std::shared_ptr<platform::PopUpButton>>
struct OptionSlot {
  const char* key;
  PopUp Panel::*popUp;
  std::shared_ptr<ChoiceArray> Panel::*choices;
  ppd_option_t* Panel::*option;
  std::shared_ptr<PDEChoice> Panel::*selection;
  const char* keyAdded;
  const char* optionMissing;
  const char* popUpFilled;
  const char* popUpDisabled;
  const char* selectionNotInList;
};

/// The mechanism: each function visits a panel's slots in the order of its table.
namespace slots {

/// Looks each option up in the panel's PPD and makes its choice list. Answers whether the PPD has
/// any of them.
template <class Panel, class Slots>
bool findOptions(Panel& panel, const Slots& slots) {
  bool any = false;
  for (const auto& slot : slots) {
    ppd_option_t* option = ppdFindOption(panel.ppd, slot.key);
    panel.*slot.option = option;
    panel.*slot.choices = ArrayFromPPDOption(option);
    any = any || option != nullptr;
  }
  return any;
}

/// Appends the keywords of the present options.
template <class Panel, class Slots>
void addSupportedKeys(Panel& panel, const Slots& slots, platform::StringArray& keys) {
  for (const auto& slot : slots) {
    const bool present = panel.*slot.option != nullptr;
    if (present) keys.append(slot.key);
    _PDELog(&panel, present ? slot.keyAdded : slot.optionMissing);
  }
}

/// Fills the slot's pop-up, or disables it when the PPD lacks the option.
template <class Panel, class PopUp>
void initializePopUp(Panel& panel, const OptionSlot<Panel, PopUp>& slot) {
  const auto& popUp = platform::held(panel.*slot.popUp);
  if (panel.*slot.option != nullptr) {
    _PDELog(&panel, slot.popUpFilled);
    InitPopUpFromArray(popUp, panel.*slot.choices);
  } else {
    _PDELog(&panel, slot.popUpDisabled);
    if (popUp) popUp->setEnabled(false);
  }
}

/// The place of that very choice in the list.
inline std::optional<std::size_t> indexOfIdentical(const std::shared_ptr<ChoiceArray>& choices,
                                                   const std::shared_ptr<PDEChoice>& choice) {
  for (std::size_t i = 0; choices && i < choices->size(); ++i) {
    if ((*choices)[i] == choice) return i;
  }
  return std::nullopt;
}

/// Selects the item of each selection in its pop-up.
template <class Panel, class Slots>
void showSelections(Panel& panel, const Slots& slots) {
  for (const auto& slot : slots) {
    const auto& selection = panel.*slot.selection;
    if (!selection) continue;
    const auto index = indexOfIdentical(panel.*slot.choices, selection);
    if (!index) {
      _PDELog(&panel, slot.selectionNotInList);
    } else if (const auto& popUp = platform::held(panel.*slot.popUp)) {
      popUp->selectItemAtIndex(static_cast<std::int64_t>(*index));
    }
  }
}

/// The position in `option` of the choice that is marked for `key` in the panel's PPD, else of the
/// option's default choice, else -1.
template <class Panel>
std::int64_t indexOfMarkedOption(Panel& panel, ppd_option_t* option, const char* key) {
  const ppd_choice_t* choice = option != nullptr ? ppdFindMarkedChoice(panel.ppd, key) : nullptr;
  if (choice == nullptr && option != nullptr) choice = ppdFindChoice(option, option->defchoice);
  if (choice != nullptr) return choice - option->choices;
  _PDELog(&panel, "returning a -1 index means there was no default choice");
  return -1;
}

/// Takes each selection from the marks in the PPD; an option that is missing keeps its own.
template <class Panel, class Slots>
void takeMarkedSelections(Panel& panel, const Slots& slots) {
  for (const auto& slot : slots) {
    if (panel.*slot.option == nullptr) continue;
    const std::int64_t index = panel.indexOfMarkedOption_forKey(panel.*slot.option, slot.key);
    panel.*slot.selection =
        index < 0 ? nullptr : (*(panel.*slot.choices))[static_cast<std::size_t>(index)];
  }
}

/// Takes a change that the host reports. Answers the slot that it was for, null when the key is
/// none of theirs or something is absent.
template <class Panel, class Slots>
auto takeHostChange(Panel& panel, const Slots& slots, const platform::Text& key,
                    const platform::Text& choice) -> decltype(&slots[0]) {
  if (!key || !choice) return nullptr;
  for (const auto& slot : slots) {
    if (*key != slot.key) continue;
    const auto selection = FindChoiceForString(choice, panel.*slot.choices);
    panel.*slot.selection = selection;
    _PDELog(&panel, "new choice is %@/%@", selection ? selection->userTitle() : std::nullopt,
            selection ? selection->ppdTitle() : std::nullopt);
    return &slot;
  }
  return nullptr;
}

/// Adds title and selected choice of each slot that has a selection. A title that cannot be read
/// leaves its entry out.
template <class Panel, class Slots>
void summarize(const Panel& panel, const Slots& slots, platform::Dictionary& summary) {
  for (const auto& slot : slots) {
    const auto& selection = panel.*slot.selection;
    if (!selection || panel.*slot.option == nullptr) continue;
    const auto title = CreateOptionTitle(panel.*slot.option);
    const auto value = selection->userTitle();
    if (title && value) summary.setValueForKey(*value, *title);
  }
}

/// The selection protocol. With constraint handling the host decides, the marks tell, and the
/// answer is nothing; without, the answer is the choice that the pop-up shows.
template <class Panel>
std::shared_ptr<PDEChoice> selectionForPopUp(Panel& panel,
                                             const std::shared_ptr<platform::PopUpButton>& popUp,
                                             const platform::Text& key) {
  _PDEProlog(&panel, "doSelectionForPopUp:(%@) withKey:(%@)", popUp, key);
  const std::int64_t index = popUp ? popUp->indexOfSelectedItem() : 0;
  _PDELog(&panel, "selected index: %i", index);
  const auto menu = popUp ? popUp->menu() : nullptr;
  const auto item = menu ? menu->itemAtIndex(index) : nullptr;
  auto request = std::dynamic_pointer_cast<PDEChoice>(item ? item->representedObject() : nullptr);
  _PDELog(&panel, "selected request: %@", request);
  if (panel.useConstraintHandling) {
    const auto host =
        std::dynamic_pointer_cast<platform::ConstraintHandling>(panel.pdePluginCallbackObject);
    if (host) {
      host->willChangePPDOptionKeyValue_ppdChoice(key,
                                                  request ? request->ppdTitle() : std::nullopt);
    }
    panel.updateMarkedSelections();
    request.reset();
  }
  _PDEEpilog(&panel, "doSelectionForPopUp:withKey:=PDEChoice(%@)", request);
  return request;
}

/// What a slot's pop-up does when the user selects.
template <class Panel, class PopUp>
void changeOption(Panel& panel, const OptionSlot<Panel, PopUp>& slot) {
  const auto choice = panel.selectionForPopUp_withKey(platform::held(panel.*slot.popUp), slot.key);
  if (choice) panel.*slot.selection = choice;
  panel.updateUI();
}

/// Labels the tagged text inside the panel's view with the option's title.
template <class Panel>
void setViewTitleByTag(Panel& panel, std::int64_t tag, const ppd_option_t* option) {
  const auto& view = platform::held(panel.pdeView);
  if (!view || option == nullptr) return;
  const auto label = std::dynamic_pointer_cast<platform::TextField>(view->viewWithTag(tag));
  if (label) label->setStringValue(CreateOptionTitle(option));
}

}  // namespace slots
}  // namespace cardpanels
