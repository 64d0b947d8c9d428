#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "dialog/DialogSession.h"
#include "host/CardKeys.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/FakePageView.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::dialog {
namespace {

using host::Option;
using testing::HasSubstr;

/// A dialog in memory that notes what it is told.
class FakeDialog : public PrintDialog {
 public:
  std::vector<Option> options() const override { return values; }
  std::string pageSize() const override { return size; }
  void setPageSize(const std::string& wanted) override {
    if (wanted != hidden) size = wanted;
  }
  std::string copies() const override { return copiesChosen; }
  void setCopies(const std::string& wanted) override { copiesChosen = wanted; }
  void set(const Option& option) override {
    if (option.value == hidden) return;
    for (Option& each : values) {
      if (each.key == option.key) each.value = option.value;
    }
  }
  void addOptions(const std::vector<Option>& options) override {
    for (const Option& each : options) {
      if (value(each.key) == "none") values.push_back(each);
    }
  }
  void showText(const std::string& shown) override { text = shown; }
  Page& showPanels(host::PanelHost& shown) override {
    text.clear();
    panels = &shown;
    page = std::make_unique<Page>(shown, view);
    page->start();
    return *page;
  }
  void showStatus(const PageStatus& shown) override { status = shown; }
  void removePage() override {
    text.clear();
    page.reset();
    panels = nullptr;
  }

  std::string value(const std::string& key) const {
    const auto found = std::find_if(values.begin(), values.end(),
                                    [&key](const Option& each) { return each.key == key; });
    return found == values.end() ? "none" : found->value;
  }
  void choose(const std::string& key, const std::string& value) { set({key, value}); }

  std::vector<Option> values;
  std::string size = "CR80";
  std::string copiesChosen = "1";
  std::string hidden;  // a choice that the dialog does not offer
  std::string text;
  host::PanelHost* panels = nullptr;
  test::FakePageView view;
  std::unique_ptr<Page> page;
  PageStatus status;
};

class Sessions : public testing::Test {
 protected:
  /// Opens the session on a printer with laminate, an area and a coating that excludes laminates.
  void open(std::vector<Option> values) {
    dialog.values = std::move(values);
    session.selectPrinter("card");
    answer(kConstraints);
  }

  void answer(const std::string& lines, std::vector<Option> saved = {}) {
    const std::string path = folder.write(
        "card.ppd",
        test::testPPD({test::laminateOption(), test::testOption("coating", "Coating", 2),
                       test::testOption("frontRotation", "Rotation", 2)},
                      lines + test::testAreaOption("frontResinInclude1")));
    done({.ppd = host::openPPD(path), .savedOptions = std::move(saved)});
    dialog.view.rest();
  }

  /// What the page's bar tells.
  std::string told() {
    dialog.view.rest();
    return joined(dialog.view.texts(), "\n");
  }

  static constexpr const char* kConstraints =
      "*cupsUIConstraints Coat: \"*coating Choice1 *cardLaminate\"\n"
      "*cupsUIResolver Coat: \"*cardLaminate None\"\n"
      "*cupsUIConstraints: \"*PageSize CR79 *cardLaminate Both\"\n";

  test::TemporaryFolder folder;
  FakeDialog dialog;
  std::weak_ptr<int> reading;
  std::function<void(QueueRead)> done;
  std::string readQueue;
  std::weak_ptr<int> watching;
  std::string watchedQueue;
  std::function<void(StateRead)> stateChanged;
  std::string presetsOf;
  std::function<void(PresetsRead)> presetsDone;
  DialogSession session{dialog,
                        [this](const std::string& queue, std::function<void(QueueRead)> then) {
                          auto token = std::make_shared<int>();
                          reading = token;
                          readQueue = queue;
                          done = std::move(then);
                          return token;
                        },
                        [this](const std::string& queue, std::function<void(StateRead)> changed) {
                          auto token = std::make_shared<int>();
                          watching = token;
                          watchedQueue = queue;
                          stateChanged = std::move(changed);
                          return token;
                        },
                        [](host::JobOptions& job) {
                          return std::make_unique<host::PanelHost>(
                              test::builtBundle(),
                              std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job);
                        },
                        [this](const PresetTask& task, std::function<void(PresetsRead)> then) {
                          presetsOf = task.name.queue;
                          presetsDone = std::move(then);
                          return std::make_shared<int>();
                        }};
};

TEST_F(Sessions, APageTellsThatThePrinterIsBeingRead) {
  session.selectPrinter("card");
  EXPECT_EQ(readQueue, "card");
  EXPECT_EQ(dialog.text, "Reading the printer's options…");
  answer("");
  ASSERT_NE(dialog.panels, nullptr);
  EXPECT_EQ(dialog.panels->panels().size(), 2U);
}

TEST_F(Sessions, ThePrintersStateIsToldOnThePageAndTheDialog) {
  open({});
  EXPECT_EQ(watchedQueue, "card");
  stateChanged({{.isStopped = true, .reasons = {"media-empty-error"}}});
  EXPECT_THAT(dialog.view.texts(), testing::ElementsAre("Printer stopped · No cards"));
  EXPECT_EQ(dialog.status.printer, "Printer stopped · No cards");
  EXPECT_EQ(dialog.status.wrong, "");
  stateChanged({{}});
  EXPECT_THAT(dialog.view.texts(), testing::IsEmpty());
  EXPECT_EQ(dialog.status, PageStatus());
}

TEST_F(Sessions, AnotherPrinterEndsTheWatchOfTheState) {
  open({});
  stateChanged({{.isStopped = true}});
  session.selectPrinter("");
  EXPECT_TRUE(watching.expired());
  EXPECT_EQ(dialog.status, PageStatus());
}

TEST_F(Sessions, AnotherPrinterEndsTheReading) {
  session.selectPrinter("card");
  session.selectPrinter("");
  EXPECT_TRUE(reading.expired());
  EXPECT_EQ(dialog.text, "");
}

TEST_F(Sessions, AnotherPrinterGetsNothingOfWhatWasTyped) {
  dialog.values = {{"frontResin", "DefinedAreas"}, {"frontResinInclude1", "Default"}};
  session.selectPrinter("card");
  done({.ppd = host::openPPD(test::duplexPPD())});
  const auto& panels = dialog.panels->panels();
  const auto resin = std::find_if(panels.begin(), panels.end(), [this](const auto& panel) {
    const auto& keys = dialog.panels->keys(panel);
    return std::find(keys.begin(), keys.end(), "frontResinInclude1") != keys.end();
  });
  ASSERT_NE(resin, panels.end());
  dialog.page->select(std::size_t(resin - panels.begin()));
  dialog.page->appear();
  auto& owner = dynamic_cast<platform::NibOwner&>(**resin);
  for (const char* column : {"X", "Y", "Width", "Height"}) {
    const auto* const field = owner.outletNamed(std::string("frontResinIncludeField1_") + column);
    dynamic_cast<headless::TextField&>(*field->view(owner)).userTypes("1in");
  }
  session.selectPrinter("");
  EXPECT_EQ(dialog.value("frontResinInclude1"), "Default");
}

TEST_F(Sessions, AQueueThatCannotBeReadIsTold) {
  session.selectPrinter("card");
  done({nullptr, "no answer"});
  EXPECT_EQ(dialog.text, "no answer");
  EXPECT_EQ(dialog.panels, nullptr);
}

TEST_F(Sessions, APrinterWithoutPanelsHasNoPage) {
  session.selectPrinter("plain");
  done({host::openPPD(folder.write("plain.ppd", test::testPPD({}))), {}});
  EXPECT_EQ(dialog.text, "");
  EXPECT_EQ(dialog.panels, nullptr);
  session.dialogChanged();
  session.print();
}

TEST_F(Sessions, PanelsStartFromWhatTheDialogWouldPrint) {
  open({{"cardLaminate", "Back"}, {"frontResinInclude1", "1in 1in 2in 2in"}});
  const auto summary = dialog.panels->summary(dialog.panels->panels().front());
  EXPECT_EQ(summary->valueForKey("Card Laminate"), "Back Side");
  EXPECT_THAT(told(), HasSubstr("Set from your last print: “Card Laminate” is “Back Side”"));
  EXPECT_EQ(dialog.value("frontResinInclude1"), "1in 1in 2in 2in");
}

TEST_F(Sessions, WhatTheDialogHasLostIsWhatWasSaved) {
  dialog.values = {{"cardLaminate", "Both"}, {"frontResinInclude1", ""}, {"coating", ""}};
  session.selectPrinter("card");
  answer("", {{"cardLaminate", "Front"}, {"FrontResinInclude1", "Custom.1in 1in 2in 2in"}});
  EXPECT_EQ(dialog.value("cardLaminate"), "Both");
  EXPECT_EQ(dialog.value("frontResinInclude1"), "Custom.1in 1in 2in 2in");
  EXPECT_EQ(dialog.value("coating"), "Choice0");
  session.dialogChanged();
  EXPECT_EQ(dialog.value("frontResinInclude1"), "Custom.1in 1in 2in 2in");
}

TEST_F(Sessions, AChoiceOnThePageReachesTheDialog) {
  open({{"cardLaminate", "None"}, {"frontResinInclude1", "Default"}});
  dialog.panels->change("cardLaminate", "Front");
  dialog.panels->change("frontResinInclude1", "1in 1in 2in 2in");
  EXPECT_EQ(dialog.value("cardLaminate"), "Front");
  EXPECT_EQ(dialog.value("frontResinInclude1"), "Custom.1in 1in 2in 2in");
  dialog.view.rest();
  EXPECT_EQ(dialog.view.summaryOf("Card Laminate"), "Front Side");
}

TEST_F(Sessions, AChangeInTheDialogReachesThePanels) {
  open({{"cardLaminate", "None"}, {"coating", "Choice0"}});
  dialog.choose("cardLaminate", "Both");
  session.dialogChanged();
  EXPECT_EQ(dialog.panels->summary(dialog.panels->panels().front())->valueForKey("Card Laminate"),
            "Both Sides");
}

TEST_F(Sessions, AConflictingChangeInTheDialogIsSetBackOrResolvedAndTold) {
  open({{"cardLaminate", "Both"}, {"coating", "Choice0"}});
  dialog.choose("coating", "Choice1");
  session.dialogChanged();
  EXPECT_THAT(told(), HasSubstr("“Card Laminate”"));
  EXPECT_THAT(told(), HasSubstr("“Coating”"));
  EXPECT_TRUE(session.knowsNoConflict());
  EXPECT_TRUE(dialog.value("coating") == "Choice0" || dialog.value("cardLaminate") == "None");
}

TEST_F(Sessions, ConflictsThatAreThereAtFirstAreTold) {
  open({{"cardLaminate", "Both"}, {"coating", "Choice1"}});
  EXPECT_THAT(told(), HasSubstr("“Coating” is “Choice 1”"));
  EXPECT_FALSE(session.knowsNoConflict());
}

TEST_F(Sessions, ThePageSizeTakesPartInConflicts) {
  dialog.size = "CR79";
  open({{"cardLaminate", "None"}});
  dialog.panels->change("cardLaminate", "Both");
  EXPECT_THAT(told(), HasSubstr("“Card Size” is “CR-79”"));
  EXPECT_EQ(dialog.value("cardLaminate"), "None");
}

TEST_F(Sessions, AChoiceThatTheDialogDoesNotOfferIsSetBackAndTold) {
  dialog.hidden = "Back";
  open({{"cardLaminate", "None"}});
  dialog.panels->change("cardLaminate", "Back");
  EXPECT_EQ(told(), "“Card Laminate” cannot be “Back Side” in this dialog.");
  EXPECT_EQ(dialog.panels->summary(dialog.panels->panels().front())->valueForKey("Card Laminate"),
            "None");
}

TEST_F(Sessions, ValuesThatAreNoChoicesAreLeftAloneUnlessAPanelClaimsThem) {
  open({{"cardLaminate", "Gold"}, {"coating", "typed"}});
  EXPECT_EQ(dialog.value("cardLaminate"), "None");
  EXPECT_THAT(told(), HasSubstr("cardLaminate=Gold"));
  EXPECT_EQ(dialog.value("coating"), "typed");
  dialog.choose("coating", "typed more");
  session.dialogChanged();
  EXPECT_EQ(dialog.value("coating"), "typed more");
  EXPECT_THAT(told(), HasSubstr("typed more"));
  dialog.page->closeNotices();
  session.dialogChanged();
  EXPECT_EQ(told(), "");
}

TEST_F(Sessions, NothingReachesADialogThatHasAnotherPrinter) {
  open({{"cardLaminate", "None"}});
  session.selectPrinter("");
  EXPECT_EQ(dialog.panels, nullptr);
  session.print();
  EXPECT_EQ(dialog.value("cardLaminate"), "None");
}

TEST_F(Sessions, EveryCardKeyMakesAPanelAndEveryPanelHasOne) {
  for (const char* key : host::kCardKeys) {
    session.selectPrinter("card");
    const auto ppd = test::testPPD({test::testOption(key, key, 13)});
    done({host::openPPD(folder.write("one.ppd", ppd)), {}});
    EXPECT_NE(dialog.panels, nullptr) << key;
  }
  session.selectPrinter("card");
  done({host::openPPD(test::duplexPPD()), {}});
  ASSERT_NE(dialog.panels, nullptr);
  std::vector<std::string> known(std::begin(host::kCardKeys), std::end(host::kCardKeys));
  for (const std::string& key : dialog.panels->claimedKeys()) {
    const bool isArea = key.find("Peel") != std::string::npos ||
                        key.find("Include") != std::string::npos ||
                        key.find("Exclude") != std::string::npos;
    EXPECT_TRUE(isArea || std::find(known.begin(), known.end(), key) != known.end()) << key;
  }
}

TEST_F(Sessions, ChoosingAPresetSetsTheDialogsOwnControls) {
  open({{"cardLaminate", "None"}, {"coating", "Choice0"}, {"frontResinInclude1", "Default"}});
  EXPECT_EQ(presetsOf, "card");
  presetsDone({{{},
                {"visitors",
                 false,
                 {{"cardLaminate", "Front"},
                  {"PageSize", "CR79"},
                  {"copies", "3"},
                  {"coating", "Choice1"}}}}});
  EXPECT_EQ(dialog.copiesChosen, "1");
  ASSERT_EQ(dialog.view.presets.entries.size(), 2U);
  dialog.page->presets()->choose(1);
  EXPECT_EQ(dialog.value("cardLaminate"), "Front");
  EXPECT_EQ(dialog.value("coating"), "Choice1");
  EXPECT_EQ(dialog.size, "CR79");
  EXPECT_EQ(dialog.copiesChosen, "3");
  session.dialogChanged();
  dialog.view.rest();
  EXPECT_EQ(dialog.view.presets.state, "");
  EXPECT_THAT(told(), HasSubstr("cannot be “Front Side” while “Coating” is “Choice 1”"));
  dialog.copiesChosen = "1";
  session.dialogChanged();
  dialog.view.rest();
  EXPECT_EQ(dialog.view.presets.state, "Modified");
}

TEST_F(Sessions, APageSizeThatTheDialogDoesNotHaveIsTold) {
  open({{"cardLaminate", "None"}});
  dialog.hidden = "CR79";
  presetsDone({{{}, {"visitors", false, {{"PageSize", "CR79"}}}}});
  dialog.page->presets()->choose(1);
  EXPECT_EQ(dialog.size, "CR80");
  EXPECT_THAT(told(), HasSubstr("“Card Size” cannot be “CR-79” in this dialog."));
  EXPECT_EQ(dialog.view.presets.state, "Modified");
}

/// Of a queue of another print server the dialog knows another PPD.
class SessionsElsewhere : public Sessions {
 protected:
  void openElsewhere(std::vector<Option> saved) {
    dialog.values = {{"frontRotation", "Choice1"}};
    dialog.size = "A4";
    session.selectPrinter("client");
    const std::string path = folder.write(
        "there.ppd",
        test::testPPD({test::laminateOption(), test::testOption("coating", "Coating", 2),
                       test::testOption("frontRotation", "Rotation", 2)},
                      kConstraints + test::testAreaOption("frontResinInclude1")));
    done({.ppd = host::openPPD(path),
          .error = {},
          .savedOptions = std::move(saved),
          .isElsewhere = true});
    dialog.view.rest();
  }
};

TEST_F(SessionsElsewhere, GiveTheDialogTheOptionsThatItLacks) {
  openElsewhere({{"cardLaminate", "Back"}, {"frontResinInclude1", "Custom.1in 1in 2in 2in"}});
  EXPECT_EQ(dialog.value("cardLaminate"), "Back");
  EXPECT_EQ(dialog.value("frontResinInclude1"), "Custom.1in 1in 2in 2in");
  EXPECT_EQ(dialog.value("coating"), "Choice0");
  EXPECT_EQ(dialog.value("frontRotation"), "Choice1");
  EXPECT_EQ(dialog.value("PageSize"), "none");
  EXPECT_EQ(dialog.size, "A4");
  const auto summary = dialog.panels->summary(dialog.panels->panels().front());
  EXPECT_EQ(summary->valueForKey("Card Laminate"), "Back Side");
  dialog.panels->change("cardLaminate", "Both");
  EXPECT_EQ(dialog.value("cardLaminate"), "Both");
}

TEST_F(SessionsElsewhere, TellWhatIsSavedAndNotThere) {
  openElsewhere({{"cardLaminate", "Gold"}});
  EXPECT_EQ(dialog.value("cardLaminate"), "None");
  EXPECT_THAT(told(), HasSubstr("Gold"));
}

TEST_F(SessionsElsewhere, LeaveTheDialogsPageSizeToPresetsThatNameNone) {
  openElsewhere({});
  presetsDone({{{}, {"visitors", false, {{"cardLaminate", "Front"}}}}});
  dialog.hidden = "CR80";
  dialog.page->presets()->choose(1);
  EXPECT_EQ(dialog.value("cardLaminate"), "Front");
  EXPECT_EQ(dialog.size, "A4");
  EXPECT_THAT(told(), testing::Not(HasSubstr("cannot be")));
}

TEST_F(Sessions, ASizeOfTheProgramsThatThePrinterLacksStaysAtTheStart) {
  dialog.size = "A4";
  open({{"cardLaminate", "None"}});
  presetsDone({{{}}});
  EXPECT_EQ(dialog.size, "A4");
}

}  // namespace
}  // namespace cardpanels::dialog
