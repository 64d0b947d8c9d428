#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/Bundle.h"
#include "platform/CallbackObject.h"
#include "platform/ConstraintHandling.h"
#include "platform/View.h"
#include "plugin/PDELogging.h"

/// What every panel does alike, over the fields that every panel has under the same names. A panel
/// calls these where it does just that, and writes its own steps in the open where it does not.
namespace cardpanels::contract {

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

/// An operation that does nothing between its lines and answers yes.
template <class Panel>
bool shouldHide(Panel& panel) {
  _PDEProlog(&panel, "shouldHide:");
  _PDEEpilog(&panel, "shouldHide:=BOOL(YES)");
  return true;
}

/// The marks are the values where the host keeps them; then shows them.
template <class Panel>
void restoreMarkedValues(Panel& panel) {
  if (panel.useConstraintHandling) {
    panel.updateMarkedSelections();
  } else {
    panel.getPPDSettingsFromPrintSettingsOnTiger();
  }
  panel.updateUI();
}

/// With constraint handling the host already holds the marks.
template <class Panel>
void saveMarkedValues(Panel& panel) {
  if (!panel.useConstraintHandling) panel.writePPDSettingsToPrintSettingsOnTiger();
}

}  // namespace cardpanels::contract
