#include "dialog/JobStateText.h"

#include <algorithm>
#include <map>
#include <vector>

#include "dialog/PageTexts.h"
#include "dialog/PrinterStateText.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;

/// "" for what tells nothing new.
std::string textOf(const std::string& reason) {
  const std::map<std::string, std::string> known{
      {"aborted-by-system", _("Given up by the print server")},
      {"job-aborted-by-system", _("Given up by the print server")},
      {"job-canceled-by-user", _("By a user")},
      {"job-canceled-by-operator", _("By the operator")},
      {"job-canceled-at-device", _("At the printer")},
      {"document-format-error", _("Document has errors")},
      {"unsupported-document-format", _("Document is of an unknown kind")},
      {"job-completed-with-errors", ""},
      {"job-printing", ""},
      {"processing-to-stop-point", ""},
  };
  const auto found = known.find(reason);
  return found == known.end() ? wordsOf(reason) : found->second;
}

const char* endText(ipp_jstate_t state) {
  switch (state) {
    case IPP_JSTATE_CANCELED: return _("Job cancelled");
    case IPP_JSTATE_STOPPED: return _("Job stopped");
    default: return _("Job aborted");
  }
}

}  // namespace

std::string lossLine(const host::JobState& state) {
  if (state.state == IPP_JSTATE_COMPLETED) return "";
  std::vector<std::string> texts{endText(state.state)};
  for (const std::string& reason : state.reasons) texts.push_back(textOf(reason));
  texts.push_back(state.message);
  std::erase(texts, "");
  return joined(texts, " · ");
}

}  // namespace cardpanels::dialog
