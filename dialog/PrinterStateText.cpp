#include "dialog/PrinterStateText.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "dialog/StateWatch.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::dialog {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;

/// A reason for a printer's state, as IPP names it, and what people call it.
struct Words {
  std::string_view reason;
  const char* text;  // to be translated; null for what is nobody's concern
};

std::vector<Words> knownReasons() {
  return {
      {"media-empty", _("No cards")},
      {"media-needed", _("Cards needed")},
      {"media-low", _("Few cards left")},
      {"media-jam", _("Card jam")},
      {"input-tray-missing", _("Card hopper missing")},
      {"output-tray-missing", _("Card output missing")},
      {"output-area-full", _("Card output full")},
      {"output-area-almost-full", _("Card output almost full")},
      {"door-open", _("Door open")},
      {"cover-open", _("Door open")},
      {"interlock-open", _("Door open")},
      {"marker-supply-empty", _("Ribbon empty")},
      {"marker-ribbon-empty", _("Ribbon empty")},
      {"marker-supply-low", _("Ribbon low")},
      {"marker-ribbon-low", _("Ribbon low")},
      {"marker-ribbon-almost-empty", _("Ribbon low")},
      {"marker-supply-missing", _("No ribbon")},
      {"marker-ribbon-missing", _("No ribbon")},
      {"marker-waste-full", _("Waste container full")},
      {"marker-waste-almost-full", _("Waste container almost full")},
      {"paused", _("Printer stopped")},
      {"moving-to-paused", _("Printer stops soon")},
      {"stopping", _("Printer stops soon")},
      {"hold-new-jobs", _("Jobs are held")},
      {"offline", _("Printer offline")},
      {"shutdown", _("Printer switched off")},
      {"power-down", _("Printer switched off")},
      {"timed-out", _("Printer does not answer")},
      {"connecting-to-device", _("Connecting to the printer")},
      {"spool-area-full", _("No room for more jobs")},
      {"cups-missing-filter", _("Printer software missing")},
      {"cups-insecure-filter", _("Printer software not secure")},
      {"cups-waiting-for-job-completed", nullptr},
      {"none", nullptr},
  };
}

constexpr std::array<std::string_view, 3> kSeverities{"-error", "-warning", "-report"};

/// The place of the reason's severity, worst first; one without is an error.
std::size_t severity(std::string_view reason) {
  const auto* const found =
      std::find_if(kSeverities.begin(), kSeverities.end(),
                   [&](std::string_view each) { return reason.ends_with(each); });
  return found == kSeverities.end() ? 0 : static_cast<std::size_t>(found - kSeverities.begin());
}

std::string_view withoutSeverity(std::string_view reason) {
  for (const std::string_view each : kSeverities) {
    if (reason.ends_with(each)) return reason.substr(0, reason.size() - each.size());
  }
  return reason;
}

/// The PPD's text for the reason, empty when it has none: libcups itself speaks of paper then.
std::string textInPPD(ppd_file_t* ppd, const std::string& reason) {
  if (ppd == nullptr || ppdFindAttr(ppd, "cupsIPPReason", reason.c_str()) == nullptr) return {};
  std::array<char, 1024> text{};
  const char* const found =
      ppdLocalizeIPPReason(ppd, reason.c_str(), nullptr, text.data(), text.size());
  return found == nullptr || !platform::isUTF8(found) ? "" : platform::onOneLine(found);
}

std::string textOf(const std::string& reason, ppd_file_t* ppd) {
  const std::string plain(withoutSeverity(reason));
  for (const std::string& each : {reason, plain}) {
    std::string text = textInPPD(ppd, each);
    if (!text.empty()) return text;
  }
  for (const Words& known : knownReasons()) {
    if (equalIgnoringCase(known.reason, plain)) return known.text == nullptr ? "" : known.text;
  }
  return wordsOf(plain);
}

std::string stoppedText(const std::string& message) {
  // The server's own words when it was given none.
  if (message.empty() || message == "Paused" || message == "Rejecting Jobs")
    return _("Printer stopped");
  return filled(_("Printer stopped: {message}"), {{"message", message}});
}

}  // namespace

std::string wordsOf(std::string_view reason) {
  const std::size_t dot = reason.rfind('.');
  std::string words(reason.substr(dot == std::string_view::npos ? 0 : dot + 1));
  std::replace(words.begin(), words.end(), '-', ' ');
  if (!words.empty() && words[0] >= 'a' && words[0] <= 'z') {
    words[0] = static_cast<char>(words[0] - 'a' + 'A');
  }
  return platform::onOneLine(words);
}

std::string stateLine(const StateRead& read, ppd_file_t* ppd) {
  if (!read.error.empty()) return read.error;
  const host::PrinterState& state = read.state;
  std::vector<std::string> texts;
  const auto add = [&](const std::string& text) {
    const bool known = std::find(texts.begin(), texts.end(), text) != texts.end();
    if (!text.empty() && !known) texts.push_back(text);
  };
  if (state.isStopped) add(stoppedText(state.message));
  if (!state.isAccepting) add(_("Printer takes no jobs"));
  auto reasons = state.reasons;
  std::stable_sort(reasons.begin(), reasons.end(),
                   [](const auto& a, const auto& b) { return severity(a) < severity(b); });
  for (const std::string& reason : reasons) {
    const bool isTold = state.isStopped && withoutSeverity(reason) == "paused";
    if (!isTold) add(textOf(reason, ppd));
  }
  std::string line;
  for (const std::string& text : texts) line += (line.empty() ? "" : " · ") + text;
  return line;
}

}  // namespace cardpanels::dialog
