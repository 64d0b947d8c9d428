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
      {"job-incoming", ""},
      {"job-queued", ""},
      {"printer-stopped", _("Printer stopped")},
      {"processing-to-stop-point", ""},
  };
  const auto found = known.find(reason);
  return found == known.end() ? wordsOf(reason) : found->second;
}

const char* stateText(ipp_jstate_t state) {
  switch (state) {
    case IPP_JSTATE_PENDING: return _("Waiting");
    case IPP_JSTATE_HELD: return _("Held");
    case IPP_JSTATE_PROCESSING: return _("Printing");
    case IPP_JSTATE_COMPLETED: return _("Printed");
    case IPP_JSTATE_CANCELED: return _("Job cancelled");
    case IPP_JSTATE_STOPPED: return _("Job stopped");
    default: return _("Job aborted");
  }
}

std::string line(const host::JobState& state) {
  std::vector<std::string> texts{stateText(state.state)};
  for (const std::string& reason : state.reasons) texts.push_back(textOf(reason));
  texts.push_back(state.message);
  std::erase(texts, "");
  return joined(texts, " · ");
}

}  // namespace

std::string lossLine(const host::JobState& state) {
  return state.state == IPP_JSTATE_COMPLETED ? "" : line(state);
}

std::string jobLine(const host::JobState& state) {
  return state.state == IPP_JSTATE_COMPLETED ? stateText(state.state) : line(state);
}

}  // namespace cardpanels::dialog
