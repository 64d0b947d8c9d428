#pragma once

#include <map>
#include <memory>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "apps/pde-drive/Script.h"
#include "apps/pde-drive/StableAddresses.h"
#include "host/HostCallback.h"
#include "host/JobOptions.h"
#include "platform/Bundle.h"
#include "platform/Log.h"
#include "platform/PlugIn.h"
#include "platform/PrintPanel.h"
#include "platform/View.h"

namespace cardpanels::drive {

/// What a script runs on.
struct Settings {
  std::string ppd;                 // the path of the job's PPD
  std::string bundle;              // the folder of the bundle to load the panels from
  bool constraintHandling = true;  // whether the host marks what panels ask for, by its rules
  bool stableAddresses = false;    // whether addresses are printed as `StableAddresses` names them
};

/// A print dialog's host that does what a script says, command by command, and prints what comes of
/// it. While it lives, the trace log goes to its output.
class Driver {
 public:
  /// Opens the PPD; throws `host::Error` when that or loading the bundle fails. `out` must outlive
  /// the driver.
  Driver(const Settings& settings, std::ostream& out);
  ~Driver();
  Driver(const Driver&) = delete;
  Driver& operator=(const Driver&) = delete;

  /// Carries one line of a script out: prints the command, its trace and its result or error. False
  /// when it failed; a line without a command succeeds silently.
  bool run(std::string_view line);

 private:
  using Panel = std::shared_ptr<platform::PrintPanel>;
  class Callback;
  class TraceSink;
  struct Request;

  std::string perform(const Words& words);
  std::string performOnPanel(const std::string& name, const std::string& operation,
                             const Words& arguments);

  std::string panels(const Words& arguments);
  std::string mark(const Words& arguments);
  std::string unmark(const Words& arguments);
  std::string marked(const Words& arguments);
  std::string refuse(const Words& arguments);
  std::string grant(const Words& arguments);
  std::string requests(const Words& arguments);
  std::string formatArea(const Words& arguments);
  std::string parseArea(const Words& arguments);

  std::string panelView(const std::string& name, const Panel& panel);
  void destroy(const std::string& name);
  void print(char mark, std::string_view text);

  Settings settings_;
  std::ostream& out_;
  std::optional<StableAddresses> addresses_;
  std::shared_ptr<platform::LogSink> sinkBefore_;
  host::JobOptions job_;
  std::set<std::string> refused_;
  std::vector<Request> requests_;
  std::shared_ptr<host::HostCallback> callback_;
  std::shared_ptr<platform::Bundle> bundle_;
  std::shared_ptr<platform::PlugIn> plugIn_;
  std::shared_ptr<platform::PanelArray> made_;
  std::map<std::string, Panel> panels_;
  std::map<std::string, std::shared_ptr<platform::View>> views_;
};

}  // namespace cardpanels::drive
