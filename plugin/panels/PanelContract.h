#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Array.h"
#include "platform/Bundle.h"
#include "platform/CallbackObject.h"
#include "platform/ConstraintHandling.h"
#include "platform/Dictionary.h"
#include "platform/Text.h"
#include "platform/View.h"
#include "plugin/log/PDELogging.h"
#include "plugin/panels/OptionSlots.h"

/// What every panel does alike, over the fields that every panel has under the same names. A panel
/// calls these where it does just that, and writes its own steps in the open where it does not.
///
/// All log texts of the plug-in stay as they are, letter for letter, the odd ones too (other names
/// in BEGIN and END, misspellings, missing values): programs read them, and tests hold them.
namespace cardpanels::contract {

/// For a panel that has no more steps in an operation than the others.
struct NothingMore {
  template <class... Arguments>
  void operator()(const Arguments&... /*arguments*/) const {}
};

/// Starts the initialiser: the BEGIN line `begin`, host and bundle kept, the host's abilities and
/// PPD taken.
template <class Panel>
void beginInit(Panel& panel, std::string_view begin,
               const std::shared_ptr<platform::CallbackObject>& callback,
               const std::shared_ptr<platform::Bundle>& bundle) {
  _PDEProlog(&panel, begin, callback, callback, bundle, bundle);
  panel.pdePluginCallbackObject = callback;
  panel.pluginBundle = bundle;
  panel.useConstraintHandling =
      std::dynamic_pointer_cast<platform::ConstraintHandling>(callback) != nullptr;
  _PDELog(&panel, "Constraint Handling Available: %s", panel.useConstraintHandling ? "YES" : "NO");
  panel.ppd = callback ? callback->ppdFile() : nullptr;
}

/// Ends the initialiser: the panel, or nothing when the PPD has none of its options.
template <class Panel>
std::shared_ptr<Panel> endInit(const std::shared_ptr<Panel>& panel, bool hasAnyOption) {
  if (!hasAnyOption) {
    panel->pdePluginCallbackObject.reset();
    _PDEEpilog(panel.get(), "initWithCallback:=id(nil, nil)");
    return nullptr;
  }
  _PDEEpilog(panel.get(), "initWithCallback:andBundle:=id(self)");
  return panel;
}

template <class Panel>
std::shared_ptr<platform::View> panelView(Panel& panel, const std::string& nibName) {
  _PDEProlog(&panel, "panelView:");
  // Keeps a freshly loaded view until the caller has it: the panel's own reference may be weak.
  std::shared_ptr<platform::View> loaded;
  if (!platform::held(panel.pdeView) && panel.pluginBundle) {
    loaded = panel.pluginBundle->loadNibNamed_owner(nibName, panel.shared_from_this());
  }
  std::shared_ptr<platform::View> view = platform::held(panel.pdeView);
  _PDEEpilog(&panel, "panelView:=NSView(%@, %p)", view, view);
  return view;
}

template <class Panel>
platform::Text panelName(Panel& panel, const std::string& nameKey) {
  _PDEProlog(&panel, "panelName:");
  if (!panel.thePDEName && panel.pluginBundle) {
    panel.thePDEName =
        panel.pluginBundle->localizedStringForKey_value_table(nameKey, std::nullopt, std::nullopt);
  }
  _PDEEpilog(&panel, "panelName:=NSString(%@)", panel.thePDEName);
  return panel.thePDEName;
}

/// `suffix` is what tells this kind from the plug-in's others.
template <class Panel>
platform::Text panelKind(Panel& panel, std::string_view suffix) {
  _PDEProlog(&panel, "panelKind:");
  platform::Text kind = "org.cardpanels" + std::string(suffix);
  _PDEEpilog(&panel, "panelKind:=NSString(%@)", kind);
  return kind;
}

template <class Panel>
void willShow(Panel& panel) {
  _PDEProlog(&panel, "willShow:");
  panel.initializeUI();
  panel.updateUI();
  _PDEEpilog(&panel, "willShow:=void");
}

/// The keywords of the present options, then what `addMore` appends; made once.
template <class Panel, class Slots, class AddMore = NothingMore>
std::shared_ptr<platform::StringArray> supportedPPDOptionKeys(
    Panel& panel, const Slots& optionSlots, std::size_t capacity, AddMore addMore = {},
    std::string_view end = "supportedPPDOptionKeys:=NSArray(%@)") {
  _PDEProlog(&panel, "supportedPPDOptionKeys:");
  if (!panel.supportedOptions) {
    panel.supportedOptions = std::make_shared<platform::StringArray>(capacity);
    slots::addSupportedKeys(panel, optionSlots, *panel.supportedOptions);
    addMore(*panel.supportedOptions);
  }
  _PDEEpilog(&panel, end, panel.supportedOptions);
  return panel.supportedOptions;
}

/// Answers yes, after `store`.
template <class Panel, class Store = NothingMore>
bool shouldHide(Panel& panel, Store store = {}) {
  _PDEProlog(&panel, "shouldHide:");
  store();
  _PDEEpilog(&panel, "shouldHide:=BOOL(YES)");
  return true;
}

template <class Panel, class Store>
bool shouldPrint(Panel& panel, Store store) {
  _PDEProlog(&panel, "shouldPrint:");
  store();
  _PDEEpilog(&panel, "shouldPrint:=BOOL(YES)");
  return true;
}

/// Takes a change that the host reports; where key and choice are there, `follow` gets the slot
/// that it was for, null for none.
template <class Panel, class Slots, class Follow = NothingMore>
void hostChange(Panel& panel, const Slots& optionSlots, const platform::Text& key,
                const platform::Text& choice, Follow follow = {}) {
  _PDEProlog(&panel, "PPDOptionKeyValueDidChange:(%@) ppdChoice:(%@)", key, choice);
  if (key && choice) follow(slots::takeHostChange(panel, optionSlots, key, choice));
  _PDEEpilog(&panel, "PPDOptionKeyValueDidChange:ppdChoice:=void");
}

/// After `restoreMore`: the marks are the values where the host keeps them; then shows them.
template <class Panel, class RestoreMore = NothingMore>
bool restoreValues(Panel& panel, platform::Text* error, RestoreMore restoreMore = {}) {
  _PDEProlog(&panel, "restoreValuesAndReturnError:(%p)", static_cast<const void*>(error));
  restoreMore();
  if (panel.useConstraintHandling) {
    panel.updateMarkedSelections();
  } else {
    panel.getPPDSettingsFromPrintSettingsOnTiger();
  }
  panel.updateUI();
  _PDEEpilog(&panel, "restoreValuesAndReturnError:=BOOL(YES)");
  return true;
}

/// After `saveMore`: with constraint handling the host already holds the marks.
template <class Panel, class SaveMore = NothingMore>
bool saveValues(Panel& panel, platform::Text* error, SaveMore saveMore = {}) {
  _PDEProlog(&panel, "saveValuesAndReturnError:(%p)", static_cast<const void*>(error));
  saveMore();
  if (!panel.useConstraintHandling) panel.writePPDSettingsToPrintSettingsOnTiger();
  _PDEEpilog(&panel, "saveValuesAndReturnError:=BOOL(YES)");
  return true;
}

/// Shows the selections and then what `showMore` shows, once the pop-ups are filled.
template <class Panel, class Slots, class ShowMore = NothingMore>
void updateUI(Panel& panel, const Slots& optionSlots, ShowMore showMore = {}) {
  _PDEProlog(&panel, "updateUI:");
  if (panel.hasInited) {
    slots::showSelections(panel, optionSlots);
    showMore();
  }
  _PDEEpilog(&panel, "updateUI:");
}

/// Fills or disables the pop-ups and then does `initializeMore`, once.
template <class Panel, class Slots, class InitializeMore = NothingMore>
void initializeUI(Panel& panel, const Slots& optionSlots, InitializeMore initializeMore = {}) {
  _PDEProlog(&panel, "initializeUI:");
  if (!panel.hasInited) {
    for (const auto& slot : optionSlots) slots::initializePopUp(panel, slot);
    initializeMore();
    panel.hasInited = true;
  }
  _PDEEpilog(&panel, "initializeUI:=void");
}

template <class Panel, class Slots>
std::shared_ptr<platform::Dictionary> summaryInfo(Panel& panel, const Slots& optionSlots,
                                                  std::size_t capacity) {
  _PDEProlog(&panel, "summaryInfo:");
  auto summary = std::make_shared<platform::Dictionary>(capacity);
  slots::summarize(panel, optionSlots, *summary);
  _PDEEpilog(&panel, "summaryInfo:NSDictionary(%@, %p)=", summary, summary);
  return summary;
}

}  // namespace cardpanels::contract
