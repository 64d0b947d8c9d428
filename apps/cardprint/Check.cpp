#include "apps/cardprint/Check.h"

#include <algorithm>
#include <iostream>

#include "dialog/PPDCheck.h"
#include "host/Error.h"
#include "host/Program.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::cardprint {
namespace {

using dialog::Gravity;
using platform::_;
using platform::filled;

constexpr int kWarned = 1;

std::string lineOf(const std::string& path, const dialog::Finding& finding) {
  std::string line = path + ":";
  if (finding.line > 0) line += std::to_string(finding.line) + ":";
  if (finding.gravity == Gravity::warning) line += std::string(" ") + _("warning") + ":";
  if (finding.gravity == Gravity::error) line += std::string(" ") + _("error") + ":";
  return platform::onOneLine(line + " " + finding.text) + "\n";
}

int tellFindings(const std::string& path) {
  const auto findings = dialog::checkPPD(path);
  const auto count = [&](Gravity gravity) {
    return std::count_if(findings.begin(), findings.end(),
                         [&](const auto& each) { return each.gravity == gravity; });
  };
  for (const dialog::Finding& each : findings) std::cout << lineOf(path, each);
  const auto errors = count(Gravity::error);
  const auto warnings = count(Gravity::warning);
  const std::string sum =
      filled(_("Errors: {errors}, warnings: {warnings}."),
             {{"errors", std::to_string(errors)}, {"warnings", std::to_string(warnings)}});
  std::cout << lineOf(path, {0, Gravity::fact, sum});
  if (errors > 0) return host::kFailed;
  return warnings > 0 ? kWarned : 0;
}

}  // namespace

int checkPPDs(const std::vector<std::string>& paths) {
  int status = 0;
  for (const std::string& path : paths) {
    try {
      status = std::max(status, tellFindings(path));
    } catch (const host::Error& error) {
      host::tellError(error.what());
      status = host::kFailed;
    }
  }
  return status;
}

}  // namespace cardpanels::cardprint
