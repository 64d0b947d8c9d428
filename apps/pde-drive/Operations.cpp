#include "apps/pde-drive/Operations.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <memory>

#include "platform/NibOwner.h"
#include "platform/WillPrint.h"
#include "ports/headless/Controls.h"

namespace cardpanels::drive {
namespace {

using platform::inQuotes;
using platform::Text;

/// The panels' names in a script.
constexpr struct {
  const char* name;
  const char* className;
} kPanelNames[] = {
    {"ribbon", "RibbonPanelsPDE"},       {"ultraviolet", "UltravioletPDE"},
    {"peeloff", "PeelOffPanelPDE"},      {"laminate", "ThermalLaminatePDE"},
    {"cardhandling", "CardHandlingPDE"},
};

std::int64_t numberIn(const std::string& text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
    throw CommandError(inQuotes(text) + " is no index");
  }
  return number;
}

/// An operation of the contract that a script calls by its C++ name.
struct Operation {
  const char* name;
  std::size_t leastArguments;
  std::size_t mostArguments;
  std::string (*perform)(platform::PrintPanel& panel, const Words& arguments);
};

template <void (platform::PrintPanel::*operation)()>
std::string performVoid(platform::PrintPanel& panel, const Words& /*arguments*/) {
  (panel.*operation)();
  return "void";
}

template <auto operation>
std::string performAsking(platform::PrintPanel& panel, const Words& /*arguments*/) {
  return told((panel.*operation)());
}

/// A script passes no error slot.
template <bool (platform::PrintPanel::*operation)(Text*)>
std::string performWithError(platform::PrintPanel& panel, const Words& arguments) {
  if (!arguments.empty() && arguments[0]) throw CommandError("the error slot can only be nil");
  return told((panel.*operation)(nullptr));
}

std::string performShouldPrint(platform::PrintPanel& panel, const Words& /*arguments*/) {
  auto* willPrint = dynamic_cast<platform::WillPrint*>(&panel);
  if (willPrint == nullptr)
    throw CommandError(std::string(panel.className()) + " has no shouldPrint");
  return told(willPrint->shouldPrint());
}

std::string performHostChange(platform::PrintPanel& panel, const Words& arguments) {
  panel.PPDOptionKeyValueDidChange_ppdChoice(arguments[0], arguments[1]);
  return "void";
}

using Contract = platform::PrintPanel;
constexpr Operation kOperations[] = {
    {"panelName", 0, 0, performAsking<&Contract::panelName>},
    {"panelKind", 0, 0, performAsking<&Contract::panelKind>},
    {"supportedPPDOptionKeys", 0, 0, performAsking<&Contract::supportedPPDOptionKeys>},
    {"willShow", 0, 0, performVoid<&Contract::willShow>},
    {"shouldHide", 0, 0, performAsking<&Contract::shouldHide>},
    {"shouldPrint", 0, 0, performShouldPrint},
    {"shouldShowHelp", 0, 0, performAsking<&Contract::shouldShowHelp>},
    {"PPDOptionKeyValueDidChange_ppdChoice", 2, 2, performHostChange},
    {"restoreValuesAndReturnError", 0, 1, performWithError<&Contract::restoreValuesAndReturnError>},
    {"saveValuesAndReturnError", 0, 1, performWithError<&Contract::saveValuesAndReturnError>},
    {"updateMarkedSelections", 0, 0, performVoid<&Contract::updateMarkedSelections>},
    {"updateUI", 0, 0, performVoid<&Contract::updateUI>},
    {"initializeUI", 0, 0, performVoid<&Contract::initializeUI>},
    {"summaryInfo", 0, 0, performAsking<&Contract::summaryInfo>},
};

platform::NibOwner& ownerOf(platform::PrintPanel& panel) {
  auto* owner = dynamic_cast<platform::NibOwner*>(&panel);
  if (owner == nullptr) throw CommandError(std::string(panel.className()) + " has no outlets");
  return *owner;
}

/// What the outlet holds; empty when nothing is loaded.
std::shared_ptr<platform::View> viewOf(platform::PrintPanel& panel, const Text& outletName) {
  const auto* outlet = ownerOf(panel).outletNamed(present(outletName));
  if (outlet == nullptr) {
    throw CommandError(std::string(panel.className()) + " has no outlet " + inQuotes(*outletName));
  }
  return outlet->view(ownerOf(panel));
}

template <class Control>
std::shared_ptr<Control> controlOf(platform::PrintPanel& panel, const Text& outletName) {
  const auto view = viewOf(panel, outletName);
  if (!view) throw CommandError("the outlet " + inQuotes(*outletName) + " is not connected");
  auto control = std::dynamic_pointer_cast<Control>(view);
  if (!control) {
    throw CommandError("the outlet " + inQuotes(*outletName) + " is a " +
                       std::string(view->className()));
  }
  return control;
}

std::string pick(platform::PrintPanel& panel, const Words& arguments) {
  const auto popUp = controlOf<headless::PopUpButton>(panel, arguments[0]);
  const std::int64_t index = numberIn(present(arguments[1]));
  if (!popUp->menu()->itemAtIndex(index)) {
    throw CommandError(*arguments[0] + " has no item " + *arguments[1]);
  }
  if (!popUp->isEnabled()) throw CommandError(*arguments[0] + " is disabled");
  popUp->userSelects(index);
  return "void";
}

std::string type(platform::PrintPanel& panel, const Words& arguments) {
  controlOf<headless::TextField>(panel, arguments[0])->setStringValue(present(arguments[1]));
  return "void";
}

std::string hiddenState(const platform::View& view) {
  return "hidden=" + told(dynamic_cast<const headless::ViewState&>(view).isHidden());
}

std::string popUpState(const headless::PopUpButton& popUp) {
  std::string items;
  for (const auto& item : popUp.items()) {
    items += items.empty() ? "" : ", ";
    items += item->title() ? inQuotes(*item->title()) : "nil";
  }
  return "items=(" + items + ") selected=" + std::to_string(popUp.indexOfSelectedItem()) +
         " enabled=" + told(popUp.isEnabled()) + " " + hiddenState(popUp);
}

std::string state(platform::PrintPanel& panel, const Words& arguments) {
  const auto view = viewOf(panel, arguments[0]);
  if (!view) return "nil";
  if (const auto popUp = std::dynamic_pointer_cast<headless::PopUpButton>(view)) {
    return popUpState(*popUp);
  }
  if (const auto field = std::dynamic_pointer_cast<headless::TextField>(view)) {
    return "text=" + inQuotes(field->stringValue()) + " " + hiddenState(*field);
  }
  return hiddenState(*view);
}

/// What a script does with a panel's controls.
constexpr Operation kControlOperations[] = {
    {"pick", 2, 2, pick},
    {"type", 2, 2, type},
    {"state", 1, 1, state},
};

const Operation* operationNamed(const std::string& name) {
  for (const auto& operation : kOperations) {
    if (operation.name == name) return &operation;
  }
  for (const auto& operation : kControlOperations) {
    if (operation.name == name) return &operation;
  }
  return nullptr;
}

/// An action by its name without the colon, the sender being nobody.
bool performAction(platform::PrintPanel& panel, const std::string& name) {
  auto* owner = dynamic_cast<platform::NibOwner*>(&panel);
  const auto* action = owner != nullptr ? owner->actionNamed(name + ":") : nullptr;
  if (action == nullptr) return false;
  action->send(*owner, nullptr);
  return true;
}

}  // namespace

bool isPanelName(const std::string& word) {
  return std::any_of(std::begin(kPanelNames), std::end(kPanelNames),
                     [&](const auto& each) { return each.name == word; });
}

std::string panelNameOf(std::string_view className) {
  for (const auto& each : kPanelNames) {
    if (each.className == className) return each.name;
  }
  return std::string(className);
}

std::string performOperation(platform::PrintPanel& panel, const std::string& operation,
                             const Words& arguments) {
  if (const Operation* known = operationNamed(operation)) {
    expectCount(arguments, known->leastArguments, known->mostArguments);
    return known->perform(panel, arguments);
  }
  if (performAction(panel, operation)) return "void";
  throw CommandError(std::string(panel.className()) + " has no operation " + inQuotes(operation));
}

}  // namespace cardpanels::drive
