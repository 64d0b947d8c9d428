#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "apps/pde-drive/Driver.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::test {

/// Runs scripts of pde-drive against the built bundle, on a PPD given as text. Addresses are
/// printed as 0x1, 0x2, …
class PanelDriver {
 public:
  enum class Host { constraining, plain };

  explicit PanelDriver(const std::string& ppd, Host host = Host::constraining);

  /// Runs the lines of `script` and answers what they print, commands included.
  std::string run(const std::string& script);

  /// The same without what is printed.
  void runSilently(const std::string& script) { run(script); }

  /// The result line of one command, without its `= ` or `! `.
  std::string result(const std::string& command);

  /// The trace lines of one command, without their `| `.
  std::string trace(const std::string& command);

  /// Whether a command has failed so far.
  bool failed() const { return failed_; }

 private:
  TemporaryFolder folder_;
  std::ostringstream out_;
  std::unique_ptr<drive::Driver> driver_;
  bool failed_ = false;
};

}  // namespace cardpanels::test
