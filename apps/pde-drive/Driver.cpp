#include "apps/pde-drive/Driver.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

#include "apps/pde-drive/Script.h"
#include "host/Error.h"
#include "host/PPDFile.h"
#include "host/PlugInLibrary.h"
#include "platform/AreaStrings.h"
#include "platform/WillPrint.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"

namespace cardpanels::drive {
namespace {

using platform::quoted;
using platform::Text;
using Words = Driver::Words;
using Panel = Driver::Panel;

/// The panels' names in a script.
constexpr struct {
  const char* name;
  const char* className;
} kPanelNames[] = {
    {"ribbon", "RibbonPanelsPDE"},       {"ultraviolet", "UltravioletPDE"},
    {"peeloff", "PeelOffPanelPDE"},      {"laminate", "ThermalLaminatePDE"},
    {"cardhandling", "CardHandlingPDE"},
};

bool isPanelName(const std::string& word) {
  return std::any_of(std::begin(kPanelNames), std::end(kPanelNames),
                     [&](const auto& each) { return each.name == word; });
}

std::string nameOfClass(std::string_view className) {
  for (const auto& each : kPanelNames) {
    if (each.className == className) return each.name;
  }
  return std::string(className);
}

std::string told(bool answer) { return answer ? "YES" : "NO"; }
std::string told(const Text& text) { return text.value_or("nil"); }
template <class T>
std::string told(const std::shared_ptr<T>& object) {
  return object ? object->description() : "nil";
}

void expectCount(const Words& arguments, std::size_t least, std::size_t most) {
  if (arguments.size() >= least && arguments.size() <= most) return;
  std::string wanted = std::to_string(least);
  if (most != least) wanted += most == SIZE_MAX ? " or more" : " to " + std::to_string(most);
  throw CommandError("takes " + wanted + " arguments, not " + std::to_string(arguments.size()));
}

const std::string& present(const Text& argument) {
  if (!argument) throw CommandError("nil is no argument here");
  return *argument;
}

std::int64_t numberIn(const std::string& text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || text.empty()) {
    throw CommandError(quoted(text) + " is no index");
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
    throw CommandError(std::string(panel.className()) + " has no outlet " + quoted(*outletName));
  }
  return outlet->view(ownerOf(panel));
}

template <class Control>
std::shared_ptr<Control> controlOf(platform::PrintPanel& panel, const Text& outletName) {
  const auto view = viewOf(panel, outletName);
  if (!view) throw CommandError("the outlet " + quoted(*outletName) + " is not connected");
  auto control = std::dynamic_pointer_cast<Control>(view);
  if (!control) {
    throw CommandError("the outlet " + quoted(*outletName) + " is a " +
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
    items += item->title() ? quoted(*item->title()) : "nil";
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
    return "text=" + quoted(field->stringValue()) + " " + hiddenState(*field);
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

/// A plug-in's functions for areas.
class AreaStrings {
 public:
  explicit AreaStrings(const std::string& bundle)
      : plugIn_(host::loadPlugIn(bundle)),
        areas_(dynamic_cast<platform::AreaStrings*>(plugIn_.get())) {
    if (areas_ == nullptr)
      throw CommandError(std::string(plugIn_->className()) + " has no area strings");
  }
  platform::AreaStrings* operator->() const { return areas_; }

 private:
  std::shared_ptr<platform::PlugIn> plugIn_;
  platform::AreaStrings* areas_;
};

/// An argument as panels hand their fields' texts over: absent when it is not ASCII.
const char* ascii(const Text& argument) {
  return platform::cStringUsingEncoding(argument, platform::StringEncoding::ascii);
}

}  // namespace

struct Driver::Request {
  Text key;
  Text choice;
  bool granted;
};

/// The real host, which also says no where the script says so.
class Driver::Callback final : public host::ConstrainingHostCallback {
 public:
  Callback(host::JobOptions& job, const std::set<std::string>& refused)
      : ConstrainingHostCallback(job), refused_(refused) {}

 private:
  host::ChangeResult decide(const Text& key, const Text& choice) override {
    if (key && refused_.contains(*key)) return {};
    return ConstrainingHostCallback::decide(key, choice);
  }

  const std::set<std::string>& refused_;
};

class Driver::TraceSink final : public platform::LogSink {
 public:
  explicit TraceSink(Driver& driver) : driver_(driver) {}
  void writeLine(std::string_view line) override { driver_.print('|', line); }

 private:
  Driver& driver_;
};

Driver::Driver(const Settings& settings, std::ostream& out)
    : settings_(settings),
      out_(out),
      job_(host::openPPD(settings.ppd)),
      bundle_(std::make_shared<headless::HeadlessBundle>(settings.bundle)),
      plugIn_(nullptr) {
  if (settings.constraintHandling) {
    const auto callback = std::make_shared<Callback>(job_, refused_);
    callback->setRequested(
        [this](const Text& key, const Text& choice, const host::ChangeResult& result) {
          requests_.push_back({key, choice, result.granted});
        });
    callback_ = callback;
  } else {
    callback_ = std::make_shared<host::HostCallback>(job_);
  }
  if (settings.stableAddresses) addresses_.emplace();
  sinkBefore_ = platform::setLogSink(std::make_shared<TraceSink>(*this));
}

Driver::~Driver() {
  if (const auto callback = std::dynamic_pointer_cast<Callback>(callback_)) {
    callback->setPanels(nullptr);
    callback->setRequested(nullptr);
  }
  platform::setLogSink(sinkBefore_);
}

void Driver::print(char mark, std::string_view text) {
  const std::string line = addresses_ ? addresses_->renamed(text) : std::string(text);
  out_ << mark << ' ' << line << '\n';
}

bool Driver::run(std::string_view line) {
  const std::string command = withoutComment(line);
  if (command.empty()) return true;
  out_ << "> " << platform::onOneLine(command) << '\n';
  try {
    print('=', platform::onOneLine(perform(words(command))));
    return true;
  } catch (const CommandError& error) {
    print('!', platform::onOneLine(error.what()));
  } catch (const host::Error& error) {
    print('!', platform::onOneLine(error.what()));
  }
  return false;
}

std::string Driver::perform(const Words& words) {
  static constexpr struct {
    const char* name;
    std::size_t leastArguments;
    std::size_t mostArguments;
    std::string (Driver::*perform)(const Words&);
  } kCommands[] = {
      {"panels", 0, 1, &Driver::panels},         {"mark", 2, 2, &Driver::mark},
      {"unmark", 1, 1, &Driver::unmark},         {"marked", 1, 1, &Driver::marked},
      {"refuse", 1, SIZE_MAX, &Driver::refuse},  {"grant", 1, SIZE_MAX, &Driver::grant},
      {"requests", 0, 0, &Driver::requests},     {"parseArea", 1, 1, &Driver::parseArea},
      {"formatArea", 4, 4, &Driver::formatArea},
  };
  const std::string& first = present(words[0]);
  for (const auto& command : kCommands) {
    if (command.name != first) continue;
    const Words arguments(words.begin() + 1, words.end());
    expectCount(arguments, command.leastArguments, command.mostArguments);
    return (this->*command.perform)(arguments);
  }
  if (!isPanelName(first)) throw CommandError("no command or panel is called " + quoted(first));
  if (words.size() < 2) throw CommandError(first + " wants an operation");
  return performOnPanel(first, present(words[1]), Words(words.begin() + 2, words.end()));
}

std::string Driver::performOnPanel(const std::string& name, const std::string& operation,
                                   const Words& arguments) {
  const auto entry = panels_.find(name);
  if (entry == panels_.end()) throw CommandError("there is no panel " + name);
  const Panel panel = entry->second;
  if (const Operation* known = operationNamed(operation)) {
    expectCount(arguments, known->leastArguments, known->mostArguments);
    return known->perform(*panel, arguments);
  }
  if (operation == "panelView") {
    expectCount(arguments, 0, 0);
    return panelView(name, panel);
  }
  if (operation == "forgetView" || operation == "destroy") {
    expectCount(arguments, 0, 0);
    views_.erase(name);
    if (operation == "destroy") destroy(name);
    return "void";
  }
  if (performAction(*panel, operation)) return "void";
  throw CommandError(std::string(panel->className()) + " has no operation " + quoted(operation));
}

std::string Driver::panels(const Words& arguments) {
  if (!plugIn_) {
    plugIn_ = host::loadPlugIn(settings_.bundle);
    plugIn_->initWithBundle(bundle_);
  }
  views_.clear();
  panels_.clear();
  made_.reset();
  const Text type = arguments.empty() ? Text(platform::kPrinterModuleType) : arguments[0];
  made_ = plugIn_->PDEPanelsForType_withHostInfo(type, callback_);
  if (const auto callback = std::dynamic_pointer_cast<Callback>(callback_)) {
    callback->setPanels(made_);
  }
  if (!made_) return "nil";
  platform::StringArray names;
  for (const Panel& panel : *made_) {
    panels_[nameOfClass(panel->className())] = panel;
    names.append(std::string(panel->className()));
  }
  return names.description();
}

std::string Driver::panelView(const std::string& name, const Panel& panel) {
  const auto view = panel->panelView();
  if (!view && bundle_->loadError()) throw CommandError(*bundle_->loadError());
  views_[name] = view;
  return told(view);
}

void Driver::destroy(const std::string& name) {
  // The factory shares this very array and would keep the panel.
  made_->remove(panels_[name]);
  panels_.erase(name);
}

std::string Driver::mark(const Words& arguments) {
  job_.mark(present(arguments[0]), present(arguments[1]));
  return "void";
}

std::string Driver::unmark(const Words& arguments) {
  job_.unmark(present(arguments[0]));
  return "void";
}

std::string Driver::marked(const Words& arguments) {
  return told(job_.marked(present(arguments[0])));
}

std::string Driver::refuse(const Words& arguments) {
  for (const Text& key : arguments) refused_.insert(present(key));
  return "void";
}

std::string Driver::grant(const Words& arguments) {
  for (const Text& key : arguments) refused_.erase(present(key));
  return "void";
}

std::string Driver::requests(const Words& /*arguments*/) {
  std::string text;
  for (const Request& request : std::exchange(requests_, {})) {
    text += (text.empty() ? "" : ", ") + told(request.key) + "=" + told(request.choice) +
            (request.granted ? " granted" : " refused");
  }
  return text.empty() ? "nil" : text;
}

std::string Driver::formatArea(const Words& arguments) {
  const AreaStrings areas(settings_.bundle);
  return areas->formatArea(ascii(arguments[0]), ascii(arguments[1]), ascii(arguments[2]),
                           ascii(arguments[3]));
}

std::string Driver::parseArea(const Words& arguments) {
  const AreaStrings areas(settings_.bundle);
  std::array<const char*, 4> parts{};
  areas->parseArea(ascii(arguments[0]), parts[0], parts[1], parts[2], parts[3]);
  std::string text;
  for (const char* const part : parts) text.append("(").append(part).append(")");
  return text;
}

}  // namespace cardpanels::drive
