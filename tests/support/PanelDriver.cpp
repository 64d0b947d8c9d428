#include "tests/support/PanelDriver.h"

#include "tests/support/BuiltFiles.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::test {
namespace {

std::unique_ptr<drive::Driver> makeDriver(const TemporaryFolder& folder, const std::string& ppd,
                                          PanelDriver::Host host, std::ostream& out) {
  drive::Settings settings;
  settings.ppd = folder.write("test.ppd", ppd);
  settings.bundle = builtBundle();
  settings.constraintHandling = host == PanelDriver::Host::constraining;
  settings.stableAddresses = true;
  return std::make_unique<drive::Driver>(settings, out);
}

/// The choice wrapper's class says hello once a process, which would make a transcript depend on
/// the tests before it.
void useEveryClassOnce() {
  static const bool used = [] {
    const TemporaryFolder folder;
    std::ostringstream out;
    return makeDriver(folder, testPPD({laminateOption()}), PanelDriver::Host::plain, out)
        ->run("panels");
  }();
  (void)used;
}

/// The lines of `text` that start with one of `marks`, without mark and blank.
std::string marked(const std::string& text, const std::string& marks) {
  std::istringstream lines(text);
  std::string result;
  for (std::string line; std::getline(lines, line);) {
    if (marks.find(line.at(0)) != std::string::npos) result += line.substr(2) + "\n";
  }
  return result;
}

}  // namespace

PanelDriver::PanelDriver(const std::string& ppd, Host host) {
  useEveryClassOnce();
  driver_ = makeDriver(folder_, ppd, host, out_);
}

std::string PanelDriver::run(const std::string& script) {
  out_.str("");
  std::istringstream lines(script);
  for (std::string line; std::getline(lines, line);) {
    if (!driver_->run(line)) failed_ = true;
  }
  return out_.str();
}

std::string PanelDriver::result(const std::string& command) {
  std::string line = marked(run(command), "=!");
  if (!line.empty()) line.pop_back();
  return line;
}

std::string PanelDriver::trace(const std::string& command) { return marked(run(command), "|"); }

}  // namespace cardpanels::test
