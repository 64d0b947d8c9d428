#include "tests/plugin/panels/SavePass.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <sstream>
#include <string_view>
#include <utility>

#include "tests/plugin/panels/Trace.h"

namespace cardpanels::test {
namespace {

constexpr const char* kColumns[] = {"X", "Y", "Width", "Height"};

std::string joined(const std::vector<std::string>& parts) {
  return parts[0] + " " + parts[1] + " " + parts[2] + " " + parts[3];
}

std::string bracketed(const std::vector<std::string>& parts) {
  return "(" + parts[0] + ")(" + parts[1] + ")(" + parts[2] + ")(" + parts[3] + ")";
}

std::string told(const std::optional<std::string>& value) { return value.value_or("(null)"); }

class TraceText {
 public:
  explicit TraceText(std::string self) : self_(std::move(self)) {}
  void line(int depth, const std::string& label, const std::string& message) {
    text_ += std::string(static_cast<std::size_t>(depth) * 4, ' ') + label + " self(" + self_ +
             ") " + message + "\n";
  }
  void plainLine(const std::string& text) { text_ += text + "\n"; }
  const std::string& text() const { return text_; }

 private:
  std::string self_;
  std::string text_;
};

struct CarryOver {
  std::optional<std::string> value;
  std::vector<std::string> parts{"", "", "", ""};
};

void showAgain(TraceText& trace, const SavePassTexts& texts, const std::string& key,
               const CarryOver& carryOver) {
  trace.line(3, "BEGIN", texts.beginShow(key, told(carryOver.value)));
  if (carryOver.value && carryOver.value != "Default") {
    trace.plainLine("BEGIN parseArea:");
    trace.plainLine("END parseArea: " + bracketed(carryOver.parts));
  }
  trace.line(3, "END", texts.endShow(key, told(carryOver.value)));
}

/// The number in the first `<TextField: 0xN>` of a trace, 0 for none.
int firstFieldIn(const std::string& trace) {
  constexpr std::string_view kField = "<TextField: ";
  const std::size_t start = trace.find(kField);
  return start == std::string::npos ? 0
                                    : std::stoi(trace.substr(start + kField.size()), nullptr, 16);
}

std::string hexadecimal(int number) {
  std::ostringstream text;
  text << std::hex << "0x" << number;
  return text.str();
}

/// The description of the first line's object.
std::string selfIn(const std::string& trace) {
  const std::size_t start = trace.find('<');
  return trace.substr(start, trace.find('>') + 1 - start);
}

TypedArea typedArea(std::string key, const std::string& kind, const char* number,
                    const std::string& i) {
  TypedArea area;
  area.key = key.append(kind).append(number);
  for (const char* column : kColumns) {
    area.outlets.push_back(
        std::string(kind).append("Field").append(number).append("_").append(column));
  }
  area.parts = {"1." + i + "in", "2mm", "." + i + "cm", i};
  return area;
}

}  // namespace

std::vector<TypedArea> typedAreas(const std::string& keyPrefix,
                                  const std::vector<std::string>& kinds) {
  std::vector<TypedArea> areas;
  for (const std::string side : {"front", "back"}) {
    for (const std::string& kind : kinds) {
      for (const char* number : {"1", "2", "3"}) {
        areas.push_back(typedArea(keyPrefix, side + kind, number, std::to_string(areas.size())));
      }
    }
  }
  return areas;
}

std::string typing(const std::string& panel, const std::vector<TypedArea>& areas) {
  std::string script;
  for (const TypedArea& area : areas) {
    for (std::size_t i = 0; i < area.outlets.size(); ++i) {
      script += panel + " type " + area.outlets[i] + " " + area.parts[i] + "\n";
    }
  }
  return script;
}

SavePass expectedSavePass(const SavePassTexts& texts, const std::vector<TypedArea>& areas,
                          const std::set<std::string>& refused, const std::string& self,
                          int firstField) {
  SavePass pass;
  TraceText trace(self);
  CarryOver carryOver{texts.carryOverAtStart};
  int field = firstField;
  trace.line(0, "BEGIN", "saveValuesAndReturnError:(0x0)");
  trace.line(1, "BEGIN", texts.passOperation);
  for (const TypedArea& area : areas) {
    const std::string text = joined(area.parts);
    std::vector<std::string> fields;
    fields.reserve(4);
    for (int i = 0; i < 4; ++i) fields.push_back("<TextField: " + hexadecimal(field++) + ">");
    trace.line(2, "BEGIN", texts.begin(area.key, fields));
    trace.plainLine("BEGIN formatArea: " + bracketed(area.parts));
    trace.plainLine("END formatArea: (" + text + ")");
    trace.line(3, "LOG", "area: " + text);
    trace.line(3, "LOG", ">>> constraint");
    const bool isRefused = refused.contains(area.key);
    if (isRefused) {
      trace.line(3, "LOG", "Request not granted. Restoring value: " + told(carryOver.value));
      showAgain(trace, texts, area.key, carryOver);
    } else {
      carryOver = {text, area.parts};
      trace.line(3, "LOG", "Request granted. Value saved: " + text);
    }
    trace.line(3, "LOG", "<<< constraint");
    trace.line(2, "END", texts.end(told(carryOver.value)));
    pass.areas.push_back(carryOver.value);
    pass.fields.push_back(carryOver.parts);
    pass.requests += (pass.requests.empty() ? "" : ", ") + area.key + "=" + text +
                     (isRefused ? " refused" : " granted");
  }
  trace.line(1, "END", texts.passOperation);
  trace.line(0, "END", "saveValuesAndReturnError:=BOOL(YES)");
  pass.trace = trace.text();
  return pass;
}

void checkSavePass(const std::string& ppd, const std::string& panel, const SavePassTexts& texts,
                   const std::vector<TypedArea>& areas, const std::set<std::string>& refused) {
  PanelDriver driver(ppd);
  driver.runSilently("panels\n" + panel + " panelView\n" + panel + " willShow\nrequests\n" +
                     typing(panel, areas));
  for (const std::string& key : refused) driver.runSilently("refuse " + key);
  const std::string trace = driver.trace(panel + " saveValuesAndReturnError");
  const SavePass expected =
      expectedSavePass(texts, areas, refused, selfIn(trace), firstFieldIn(trace));
  EXPECT_EQ(trace, expected.trace);
  EXPECT_EQ(driver.result("requests"), expected.requests);
  for (std::size_t i = 0; i < areas.size(); ++i) {
    for (std::size_t part = 0; part < 4; ++part) {
      EXPECT_EQ(driver.result(panel + " state " + areas[i].outlets[part]),
                "text=\"" + expected.fields[i][part] + "\" hidden=NO");
    }
  }
  const std::string shown = messages(driver.trace(panel + " updateUI"));
  for (std::size_t i = 0; i < areas.size(); ++i) {
    const std::string line =
        "BEGIN " + texts.beginShow(areas[i].key, told(expected.areas[i])) + "\n";
    EXPECT_TRUE(contains(shown, line)) << line << shown;
  }
}

void checkSavePasses(const std::string& ppd, const std::string& panel, const SavePassTexts& texts,
                     const std::vector<TypedArea>& areas) {
  checkSavePass(ppd, panel, texts, areas, {});
  std::set<std::string> all;
  for (const TypedArea& area : areas) {
    SCOPED_TRACE(area.key);
    checkSavePass(ppd, panel, texts, areas, {area.key});
    all.insert(area.key);
  }
  checkSavePass(ppd, panel, texts, areas, all);
}

}  // namespace cardpanels::test
