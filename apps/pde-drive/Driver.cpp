#include "apps/pde-drive/Driver.h"

#include <array>
#include <cstdint>
#include <utility>

#include "apps/pde-drive/Operations.h"
#include "host/Error.h"
#include "host/PPDFile.h"
#include "host/PlugInLibrary.h"
#include "platform/AreaStrings.h"
#include "ports/headless/HeadlessBundle.h"

namespace cardpanels::drive {
namespace {

using platform::Text;

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
  if (!isPanelName(first))
    throw CommandError("no command or panel is called " + platform::inQuotes(first));
  if (words.size() < 2) throw CommandError(first + " wants an operation");
  return performOnPanel(first, present(words[1]), Words(words.begin() + 2, words.end()));
}

std::string Driver::performOnPanel(const std::string& name, const std::string& operation,
                                   const Words& arguments) {
  const auto entry = panels_.find(name);
  if (entry == panels_.end()) throw CommandError("there is no panel " + name);
  const Panel panel = entry->second;
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
  return performOperation(*panel, operation, arguments);
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
    panels_[panelNameOf(panel->className())] = panel;
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
