// Plays any sequence of host calls, picks, typed texts, host changes and refusals to all five
// panels, and checks that every command leaves the trace balanced and at depth 0.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "apps/pde-drive/Driver.h"
#include "fuzz/Require.h"

namespace {

using cardpanels::fuzz::require;
using Names = std::vector<std::string>;

/// A panel's own names: in scripts, of its actions and pop-ups.
struct PanelNames {
  std::string name;
  Names actions;
  Names outlets;
};

/// `prefix` + side + kind + `field` + number for both sides, two kinds and three numbers.
Names numbered(const std::string& prefix, const Names& kinds, const std::string& field) {
  Names names;
  for (const std::string side : {"front", "back"}) {
    for (const std::string& kind : kinds) {
      for (const std::string number : {"1", "2", "3"}) {
        names.push_back(std::string(prefix).append(side).append(kind).append(field) + number);
      }
    }
  }
  return names;
}

Names withFields(Names outlets, const Names& kinds) {
  for (const std::string& field : numbered("", kinds, "Field")) {
    for (const char* column : {"_X", "_Y", "_Width", "_Height"}) outlets.push_back(field + column);
  }
  return outlets;
}

const Names kPeelOffKinds{"PeelOff", "NonPeelOff"};
const Names kResinKinds{"ResinInclude", "ResinExclude"};

const std::array<PanelNames, 5> kPanels{{
    {"ribbon",
     {"changeFrontRibbonOption", "changeBackRibbonOption", "changeFrontResinOption",
      "changeBackResinOption"},
     withFields({"frontRibbonPopUp", "backRibbonPopUp", "frontResinPopUp", "backResinPopUp",
                 "frontResinLabel", "frontResinTab"},
                kResinKinds)},
    {"ultraviolet",
     {"changeFrontUVOption", "changeBackUVOption", "changeFrontMACOption", "changeBackMACOption"},
     {"frontUVPopUp", "backUVPopUp", "frontMACPopup", "backMACPopup"}},
    {"peeloff",
     {"changeFrontPeelOffOption", "changeBackPeelOffOption"},
     withFields({"frontPeelOffPopUp", "backPeelOffPopUp", "backPeelOffArea"}, kPeelOffKinds)},
    {"laminate", {"changeFrontLaminateOption"}, {"frontLaminatePopUp"}},
    {"cardhandling",
     {"changeFrontRotateOption", "changeBackRotateOption", "changeCardEntryOption",
      "changeMagEncodeOption"},
     {"frontRotatePopUp", "backRotatePopUp", "cardEntryPopUp", "magEncodePopUp"}},
}};

const std::array kOperations{"panelView",
                             "forgetView",
                             "willShow",
                             "shouldHide",
                             "shouldPrint",
                             "saveValuesAndReturnError",
                             "restoreValuesAndReturnError",
                             "updateUI",
                             "initializeUI",
                             "updateMarkedSelections",
                             "summaryInfo",
                             "supportedPPDOptionKeys",
                             "panelName",
                             "panelKind",
                             "shouldShowHelp",
                             "destroy"};

Names allKeys() {
  Names keys{"frontRibbon",
             "backRibbon",
             "frontResin",
             "backResin",
             "frontUV",
             "backUV",
             "frontUVMAC",
             "backUVMAC",
             "frontPO",
             "backPO",
             "cardLaminate",
             "backRotation",
             "frontRotation",
             "entryCardFlip",
             "PageSize",
             "NoSuchKeyword",
             "nil",
             "magEncodeCardFlip",
             "",
             "CardModel"};
  for (const std::string& key : numbered("Custom", kPeelOffKinds, "")) keys.push_back(key);
  for (const std::string& key : numbered("", kResinKinds, "")) keys.push_back(key);
  return keys;
}

const Names kKeys = allKeys();

constexpr int kMostCommands = 200;

const std::array kChoices{"None",
                          "YMCK",
                          "DefinedAreas",
                          "WholeCard",
                          "Default",
                          "Front",
                          "Both",
                          "Rotate180",
                          "True",
                          "Custom.",
                          "Custom",
                          "",
                          "0in 0in 0in 0in",
                          "1in 1in 2in 2in",
                          "Custom.1in 1in 2in 2in"};

/// `text` as one argument of a script.
std::string inQuotes(std::string_view text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '\n') {
      result += "\\n";
      continue;
    }
    if (c == '"' || c == '\\') result += '\\';
    result += c;
  }
  return result + "\"";
}

std::string argument(const std::string& name) { return name == "nil" ? name : inQuotes(name); }

class Script {
 public:
  Script(const std::uint8_t* data, std::size_t size) : data_(data, size) {}

  bool ended() { return data_.remaining_bytes() == 0; }
  bool coin() { return data_.ConsumeBool(); }

  std::string command() {
    const PanelNames& panel = data_.PickValueInArray(kPanels);
    switch (data_.ConsumeIntegralInRange(0, 9)) {
      case 0: return panel.name + " " + one(panel.actions);
      case 1:
      case 2: return panel.name + " pick " + one(panel.outlets) + " " + number();
      case 3:
      case 4: return panel.name + " type " + one(panel.outlets) + " " + value();
      case 5: return panel.name + " PPDOptionKeyValueDidChange_ppdChoice " + key() + " " + value();
      case 6: return (coin() ? "refuse " : "grant ") + key();
      case 7: return coin() ? "mark " + key() + " " + value() : "unmark " + key();
      case 8: return coin() ? panel.name + " state " + one(panel.outlets) : "requests";
      default: return panel.name + " " + data_.PickValueInArray(kOperations);
    }
  }

 private:
  const std::string& one(const Names& names) {
    return names[data_.ConsumeIntegralInRange<std::size_t>(0, names.size() - 1)];
  }
  std::string number() { return std::to_string(data_.ConsumeIntegralInRange(0, 14)); }
  std::string key() { return argument(one(kKeys)); }
  std::string value() {
    if (coin()) return inQuotes(data_.PickValueInArray(kChoices));
    return coin() ? "nil" : inQuotes(data_.ConsumeRandomLengthString(100));
  }

  FuzzedDataProvider data_;
};

/// Whether the trace lines of a command's output open and close one another at their indentation
/// and end at depth 0.
bool isBalanced(const std::string& output) {
  constexpr std::string_view kTrace = "| ";
  std::istringstream lines(output);
  std::size_t depth = 0;
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(kTrace)) continue;
    const std::string_view trace = std::string_view(line).substr(kTrace.size());
    const std::size_t indentation = std::min(trace.find_first_not_of(' '), trace.size());
    const std::string_view text = trace.substr(indentation);
    const bool begins = text.starts_with("BEGIN self(");
    const bool ends = text.starts_with("END self(");
    if (!begins && !ends && !text.starts_with("LOG self(")) continue;
    if (ends && depth-- == 0) return false;
    if (indentation != 4 * depth) return false;
    if (begins) ++depth;
  }
  return depth == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Script script(data, size);
  std::ostringstream out;
  cardpanels::drive::Settings settings;
  settings.ppd = CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd";
  settings.bundle = CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle";
  settings.constraintHandling = script.coin();
  cardpanels::drive::Driver driver(settings, out);
  const auto carryOut = [&](const std::string& command) {
    out.str("");
    driver.run(command);
    require(isBalanced(out.str()), "the trace is balanced and at depth 0 after:\n" + out.str());
  };
  carryOut("panels");
  if (script.coin()) {
    for (const PanelNames& panel : kPanels) {
      for (const char* operation : {"restoreValuesAndReturnError", "panelView", "willShow"}) {
        carryOut(panel.name + " " + operation);
      }
    }
  }
  for (int count = 0; count < kMostCommands && !script.ended(); ++count) {
    carryOut(script.command());
  }
  return 0;
}
