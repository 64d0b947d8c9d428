#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <tuple>

#include "dialog/CardAreas.h"
#include "host/JobOptions.h"
#include "host/PanelHost.h"
#include "platform/NibOwner.h"
#include "platform/TextField.h"
#include "plugin/panels/AreaStrings.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string keyOf(const CardArea& area) { return area.key; }

std::vector<std::string> keysOf(const std::vector<CardArea>& areas) {
  std::vector<std::string> keys;
  std::transform(areas.begin(), areas.end(), std::back_inserter(keys), keyOf);
  return keys;
}

/// What the panels' fields show of an area.
AreaTexts parsed(const std::string& area) {
  const char* parts[4] = {};
  parseArea(area.c_str(), parts[0], parts[1], parts[2], parts[3]);
  return {parts[0], parts[1], parts[2], parts[3]};
}

using Words = std::vector<std::string>;

/// Picks words, the same ones in every run.
class Picker {
 public:
  const std::string& any(const Words& words) { return words[number_() % words.size()]; }

 private:
  std::mt19937 number_{20261121};
};

TEST(AreaTexts, AreFourMeasurements) {
  EXPECT_EQ(areaTexts("Custom.0.5in 0.25in 2in 1in"), (AreaTexts{"0.5in", "0.25in", "2in", "1in"}));
  EXPECT_EQ(areaTexts("1 2 3 4"), (AreaTexts{"1px", "2px", "3px", "4"}));
}

TEST(AreaTexts, OfNoAreaAreEmpty) {
  for (const char* value : {"", "Default", "Custom.", "0in 0in 0in 0in", "1in 2in 3in",
                            "1in 2in 3in 4in 5in", "1in, 2in, 3in, 4in"}) {
    EXPECT_EQ(areaTexts(value), AreaTexts()) << value;
  }
}

TEST(AreaTexts, AreWhatThePanelsRead) {
  const test::RecordedLog log;
  const Words prefixes{"", "Custom.", "cUSTOM.", "Default"};
  const Words gaps{"", "", " ", "  ", "-", " +"};
  const Words spaces{"", "", "", " ", "  ", "\t"};
  const Words numbers{"1", "23", "0.5", ".7", "2.", ".", "1.2.3"};
  const Words units{"in", "IN", "cm", "mM", "px", "\"", "", "", "i", ",", "\xC3\xA9"};
  Picker pick;
  int areas = 0;
  for (int i = 0; i < 50000; ++i) {
    std::string value = pick.any(prefixes);
    for (int k = 0; k < 4; ++k) {
      value += pick.any(gaps) + pick.any(numbers) + pick.any(spaces) + pick.any(units);
    }
    value += pick.any(gaps);
    const AreaTexts texts = areaTexts(value);
    ASSERT_EQ(texts, parsed(value)) << value;
    areas += texts[0].empty() ? 0 : 1;
  }
  EXPECT_GT(areas, 1000);
  EXPECT_LT(areas, 49000);
}

TEST(AreaTexts, HaveTwentyCharactersAtMost) {
  const test::RecordedLog log;
  for (const std::size_t length : {18U, 19U, 20U, 21U}) {
    for (const std::string unit : {"", "\"", "in"}) {
      const std::string value = "1in 2in 3in " + std::string(length, '7') + unit;
      EXPECT_EQ(areaTexts(value), parsed(value)) << value;
    }
  }
  EXPECT_EQ(areaTexts("1in 2in 3in " + std::string(21, '7')), AreaTexts());
}

TEST(AreaTexts, ComeBackAsTheyWereTyped) {
  const test::RecordedLog log;
  const Words words{"1in", "0.25IN", ".5cm", "12.mm", "300px", "2\""};
  Picker pick;
  for (int i = 0; i < 100; ++i) {
    const AreaTexts typed{pick.any(words), pick.any(words), pick.any(words), pick.any(words)};
    const char* const area =
        formatArea(typed[0].c_str(), typed[1].c_str(), typed[2].c_str(), typed[3].c_str());
    EXPECT_EQ(areaTexts("Custom." + std::string(area)), typed);
  }
}

class CardAreas : public testing::Test {
 protected:
  host::JobOptions job{host::openPPD(test::duplexPPD())};
  const AreaSide& frontResin = areaSides()[0];
};

TEST_F(CardAreas, AreReadOffTheMarks) {
  job.mark("frontResinInclude2", "1in 2in 3in 4in");
  job.mark("frontResinExclude1", "1.23456789in 2.3456789in 3.456789in 4.56789in");
  const auto areas = areasOf(job, frontResin);
  EXPECT_THAT(keysOf(areas),
              ElementsAre("frontResinInclude1", "frontResinInclude2", "frontResinInclude3",
                          "frontResinExclude1", "frontResinExclude2", "frontResinExclude3"));
  EXPECT_TRUE(areas[0].isEmpty());
  EXPECT_TRUE(areas[1].include);
  EXPECT_EQ(areas[1].number, 2);
  EXPECT_EQ(areas[1].texts, (AreaTexts{"1in", "2in", "3in", "4in"}));
  EXPECT_FALSE(areas[3].include);
  EXPECT_EQ(areas[3].number, 1);
  EXPECT_EQ(areas[3].text(AreaColumn::height), "4.56789in");
}

TEST_F(CardAreas, ThatThePrinterLacksAreNone) {
  const test::TemporaryFolder folder;
  const host::JobOptions other(host::openPPD(
      folder.write("test.ppd", test::testPPD({}, test::testAreaOption("CustombackPeelOff3")))));
  EXPECT_THAT(areasOf(other, frontResin), IsEmpty());
  EXPECT_THAT(keysOf(areasOf(other, areaSides()[3])), ElementsAre("CustombackPeelOff3"));
}

TEST_F(CardAreas, HaveNoOtherFields) {
  for (const char* outlet :
       {"", "frontResinPopUp", "frontResinIncludeField", "frontResinIncludeField1",
        "frontResinIncludeField0_X", "frontResinIncludeField4_X", "frontResinIncludeField1_x",
        "frontResinIncludeField11_X", "frontResinIncludeField1_X_", "frontPeelOffArea"}) {
    EXPECT_EQ(areaFieldOf(outlet), std::nullopt) << outlet;
  }
}

/// With the panels themselves.
class AreasOfPanels : public CardAreas {
 protected:
  AreasOfPanels() {
    for (const auto& panel : host.panels()) {
      host.view(panel);
      host.show(panel);
    }
  }

  bool isHidden(const std::string& tabOutlet) {
    for (const auto& panel : host.panels()) {
      const auto& owner = dynamic_cast<platform::NibOwner&>(*panel);
      const platform::Outlet* const outlet = owner.outletNamed(tabOutlet);
      if (outlet == nullptr) continue;
      return std::dynamic_pointer_cast<headless::TabView>(outlet->view(owner))->isHidden();
    }
    throw std::runtime_error("no outlet " + tabOutlet);
  }

  test::RecordedLog log;
  host::PanelHost host{test::builtBundle(),
                       std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job};
};

TEST_F(AreasOfPanels, AreWhatTheFieldsOfThoseOutletsHold) {
  std::map<AreaField, std::string, bool (*)(const AreaField&, const AreaField&)> typed(
      [](const AreaField& a, const AreaField& b) {
        return std::tie(a.key, a.column) < std::tie(b.key, b.column);
      });
  for (const auto& panel : host.panels()) {
    const auto& owner = dynamic_cast<platform::NibOwner&>(*panel);
    for (const platform::Outlet& outlet : owner.outlets()) {
      const auto field = areaFieldOf(outlet.name);
      if (!field) continue;
      const std::string text = std::to_string(typed.size() + 1) + "px";
      typed[*field] = text;
      std::dynamic_pointer_cast<platform::TextField>(outlet.view(owner))->setStringValue(text);
    }
    host.storeTyped(panel);
  }
  ASSERT_THAT(typed, SizeIs(2 * 48));
  for (const AreaSide& side : areaSides()) {
    for (const CardArea& area : areasOf(job, side)) {
      for (const auto column :
           {AreaColumn::x, AreaColumn::y, AreaColumn::width, AreaColumn::height}) {
        EXPECT_EQ(area.text(column), typed.at({area.key, column})) << area.key;
      }
    }
  }
}

TEST_F(AreasOfPanels, CountWhereTheFieldsShow) {
  struct Tab {
    const char* outlet;
    const char* option;
    const char* ribbon;
  };
  constexpr Tab kTabs[] = {{"frontResinTab", "frontResin", "frontRibbon"},
                           {"backResinTab", "backResin", "backRibbon"},
                           {"frontPeelOffArea", "frontPO", nullptr},
                           {"backPeelOffArea", "backPO", nullptr}};
  int shown = 0;
  const auto compare = [&](std::size_t side) {
    const bool counts = hasDefinedAreas(job, areaSides()[side]);
    EXPECT_EQ(counts, !isHidden(kTabs[side].outlet)) << kTabs[side].outlet;
    shown += counts ? 1 : 0;
  };
  for (std::size_t side = 0; side < std::size(kTabs); ++side) {
    const auto& [outlet, option, ribbon] = kTabs[side];
    for (const char* ribbonChoice : {"YMCK", "K"}) {
      ASSERT_TRUE(ribbon == nullptr || host.change(ribbon, ribbonChoice).granted);
      const ppd_option_t* const record = ppdFindOption(job.ppd(), option);
      for (int i = 0; i < record->num_choices; ++i) {
        ASSERT_TRUE(host.change(option, record->choices[i].choice).granted);
        compare(side);
      }
    }
  }
  EXPECT_EQ(shown, 1 + 1 + 2 + 2);
}

TEST_F(CardAreas, CountByTheDefaultWhereNothingIsMarked) {
  const test::TemporaryFolder folder;
  host::JobOptions other(host::openPPD(folder.write(
      "test.ppd", test::testPPD({test::testOption("backPO", "Back", 14, "Choice12")}))));
  other.unmark("backPO");
  ASSERT_EQ(other.marked("backPO"), std::nullopt);
  EXPECT_TRUE(hasDefinedAreas(other, areaSides()[3]));
  EXPECT_FALSE(hasDefinedAreas(other, areaSides()[2]));
}

}  // namespace
}  // namespace cardpanels::dialog
