#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <filesystem>

#include "dialog/Page.h"
#include "dialog/Presets.h"
#include "host/PanelHost.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/FakePageView.h"
#include "tests/support/ScopedVariable.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::dialog {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Options = std::vector<host::Option>;

/// The real plug-in's page on a job for the queue `card`, with the presets in a folder, and the
/// toolkit in memory.
class PagesWithPresets : public testing::Test, private host::PanelObserver {
 protected:
  PagesWithPresets() { std::filesystem::create_directory(folder.path() / "home"); }

  void users(const std::string& lines) { folder.write("home/.cups/lpoptions", lines); }
  std::string usersLines() const {
    return test::fileContent(folder.path() / "home/.cups/lpoptions");
  }

  /// Opens the dialog with that preset chosen, and its options set.
  void open(const std::string& preset = {}, const Options& options = {}) {
    job = std::make_unique<host::JobOptions>(host::openPPD(test::duplexPPD()));
    job->markSaved(options);
    panels = std::make_unique<host::PanelHost>(
        test::builtBundle(), std::make_shared<headless::HeadlessBundle>(test::builtBundle()), *job);
    panels->setObserver(this);
    page = std::make_unique<Page>(*panels, view);
    page->start();
    page->appear();
    page->offerPresets({
        .queue = {"card", preset},
        .serverOptions = serverOptions,
        .work =
            [this](const PresetTask& task, std::function<void(PresetsRead)> done) {
              tasks.push_back([task, done] { done(doneWithPresets(task)); });
              return std::make_shared<int>();
            },
        .copies = [this] { return copies; },
        .follow = [this](const std::string& now) { copies = now; },
        .use = [this](const std::string& name) { used = name; },
    });
    rest();
  }

  void rest() {
    do {
      view.rest();
      for (const auto& each : std::exchange(tasks, {})) each();
    } while (!tasks.empty());
    view.rest();
  }

  void TearDown() override {
    if (panels) panels->setObserver(nullptr);
    page.reset();
    panels.reset();
  }

  void optionsChanged() override { page->optionsChanged(); }
  void tell(const std::string& message, const std::optional<host::Option>& /*insisted*/) override {
    page->tell(message);
  }

  void change(const std::string& key, const std::string& choice) {
    panels->change(key, choice);
    rest();
  }

  void choose(const std::string& title) {
    const auto names = titles();
    const auto found = std::find(names.begin(), names.end(), title);
    ASSERT_NE(found, names.end()) << title;
    page->presets()->choose(static_cast<std::size_t>(found - names.begin()));
    rest();
  }

  void saveAs(const std::string& name) {
    page->presets()->saveAs(name);
    rest();
  }

  std::vector<std::string> titles() const {
    std::vector<std::string> all;
    for (const auto& each : view.presets.entries) all.push_back(each.title);
    return all;
  }
  std::string chosen() const { return view.presets.entries.at(view.presets.chosen).title; }

  headless::TextField& field(const std::string& outlet) {
    auto& owner = dynamic_cast<platform::NibOwner&>(*page->sections()[0].panel);
    return dynamic_cast<headless::TextField&>(*owner.outletNamed(outlet)->view(owner));
  }

  void typeArea(const std::string& part) {
    for (const char* each : {"X", "Y", "Width", "Height"}) {
      field(std::string("frontResinIncludeField1_") + each).userTypes(part);
    }
  }

  test::TemporaryFolder folder;
  test::ScopedVariable root{"CUPS_SERVERROOT", folder.path().string()};
  test::ScopedVariable home{"HOME", (folder.path() / "home").string()};
  Options serverOptions;
  std::string copies = "1";
  std::string used = "nothing";
  std::deque<std::function<void()>> tasks;
  std::unique_ptr<host::JobOptions> job;
  std::unique_ptr<host::PanelHost> panels;
  test::FakePageView view;
  std::unique_ptr<Page> page;
};

TEST_F(PagesWithPresets, ShowStandardAndTheInstancesOfTheQueue) {
  folder.write("lpoptions", "Dest card/staff cardLaminate=Both\n");
  users("Dest card/visitors cardLaminate=Front\nDest card copies=1\nDest other/guests a=b\n");
  open();
  EXPECT_THAT(view.presets.entries, ElementsAre(PresetRow::Entry{"Standard", false},
                                                PresetRow::Entry{"staff (for everybody)", true},
                                                PresetRow::Entry{"visitors", false}));
  EXPECT_EQ(chosen(), "Standard");
  EXPECT_EQ(view.presets.state, "");
  EXPECT_FALSE(view.presets.canSave);
  EXPECT_FALSE(view.presets.canDelete);
}

TEST_F(PagesWithPresets, StartWithThePresetThatTheJobBeganWith) {
  users("Dest card/visitors cardLaminate=Front copies=2\n");
  copies = "2";
  open("Visitors", {{"cardLaminate", "Front"}});
  EXPECT_EQ(chosen(), "visitors");
  EXPECT_EQ(view.presets.state, "");
  EXPECT_TRUE(view.presets.canDelete);
  EXPECT_EQ(used, "nothing");
}

TEST_F(PagesWithPresets, TellThatAJobDiffersFromItsPresetUntilItIsThatAgain) {
  users("Dest card/visitors cardLaminate=Front\n");
  open("visitors", {{"cardLaminate", "Front"}, {"frontRotation", "Rotate180"}});
  EXPECT_EQ(view.presets.state, "Modified");
  EXPECT_TRUE(view.presets.canSave);
  change("frontRotation", "None");
  EXPECT_EQ(view.presets.state, "");
  EXPECT_FALSE(view.presets.canSave);
  copies = "3";
  page->optionsChanged();
  rest();
  EXPECT_EQ(view.presets.state, "Modified");
}

TEST_F(PagesWithPresets, OtherCopiesThanThePresetsAreADifferenceFromTheStart) {
  users("Dest card/visitors copies=2\n");
  open("visitors");
  EXPECT_EQ(view.presets.state, "Modified");
}

TEST_F(PagesWithPresets, ChoosingOneSetsAllOfItAndNothingElseStays) {
  users(
      "Dest card/visitors cardLaminate=Front PageSize=CR79 copies=4 frontRibbon=YMCK "
      "frontResin=DefinedAreas frontResinInclude1=\"Custom.1in 0.5in 2in 1in\"\n");
  open();
  change("backRotation", "Rotate180");
  choose("visitors");
  EXPECT_EQ(job->marked("cardLaminate"), "Front");
  EXPECT_EQ(job->marked("PageSize"), "CR79");
  EXPECT_EQ(job->marked("backRotation"), "None");
  EXPECT_EQ(job->marked("frontResinInclude1"), "Custom.1in 0.5in 2in 1in");
  EXPECT_EQ(field("frontResinIncludeField1_Width").text(), "2in");
  EXPECT_EQ(copies, "4");
  EXPECT_EQ(used, "visitors");
  EXPECT_EQ(chosen(), "visitors");
  EXPECT_EQ(view.presets.state, "");
  choose("Standard");
  EXPECT_EQ(job->marked("cardLaminate"), "None");
  EXPECT_EQ(job->marked("PageSize"), "CR80");
  EXPECT_EQ(field("frontResinIncludeField1_Width").text(), "");
  EXPECT_EQ(copies, "1");
  EXPECT_EQ(used, "");
}

TEST_F(PagesWithPresets, WhatTheServerAddsStandsWhereAPresetLacksIt) {
  users("Dest card/visitors frontRotation=Rotate180\nDest card/staff cardLaminate=None copies=1\n");
  serverOptions = {{"cardLaminate", "Back"}, {"copies", "2"}, {"job-sheets", "none,none"}};
  open("", serverOptions);
  choose("visitors");
  EXPECT_EQ(job->marked("cardLaminate"), "Back");
  EXPECT_EQ(copies, "2");
  choose("staff");
  EXPECT_EQ(job->marked("cardLaminate"), "None");
  EXPECT_EQ(job->marked("frontRotation"), "None");
  EXPECT_EQ(copies, "1");
}

TEST_F(PagesWithPresets, WhatThePrinterDoesNotKnowIsToldByNameUntilAnotherIsChosen) {
  users("Dest card/old cardLaminate=Gold frontGloss=On backGloss=On copies=2 number-up=2\n");
  open();
  choose("old");
  EXPECT_THAT(
      view.texts(),
      ElementsAre(HasSubstr("cardLaminate=Gold was left out: "),
                  "old has options that this printer does not have: backGloss, frontGloss."));
  choose("Standard");
  EXPECT_THAT(view.texts(), IsEmpty());
}

TEST_F(PagesWithPresets, WhatThePrinterDoesNotKnowIsToldAtTheStartToo) {
  users("Dest card/old frontGloss=On\n");
  open("old");
  EXPECT_THAT(view.texts(),
              ElementsAre("old has options that this printer does not have: frontGloss."));
}

TEST_F(PagesWithPresets, ConflictsInsideAPresetAreToldBeforePrint) {
  users("Dest card/tight cardLaminate=Both PageSize=CR79\n");
  open();
  choose("tight");
  EXPECT_EQ(job->marked("cardLaminate"), "Both");
  EXPECT_EQ(job->marked("PageSize"), "CR79");
  EXPECT_THAT(view.texts(), ElementsAre(HasSubstr("“Card Size” cannot be “CR79")));
  EXPECT_FALSE(page->mayPrint([] {}));
}

TEST_F(PagesWithPresets, AnAreaThatWasNotStoredYetIsSavedAndComesBackToTheDigit) {
  open();
  change("frontRibbon", "YMCK");
  change("frontResin", "DefinedAreas");
  typeArea("1.0625in");
  change("cardLaminate", "Front");
  copies = "2";
  typeArea("1.03125in");
  saveAs("visitors");
  EXPECT_EQ(chosen(), "visitors");
  EXPECT_EQ(used, "visitors");
  EXPECT_EQ(view.presets.state, "");
  EXPECT_THAT(usersLines(), HasSubstr("Custom.1.03125in 1.03125in 1.03125in 1.03125in"));
  EXPECT_THAT(usersLines(), HasSubstr("PageSize=\"CR80\""));
  EXPECT_THAT(usersLines(), HasSubstr("backRotation=\"None\""));
  choose("Standard");
  EXPECT_EQ(field("frontResinIncludeField1_X").text(), "");
  choose("visitors");
  EXPECT_EQ(field("frontResinIncludeField1_X").text(), "1.03125in");
  EXPECT_EQ(job->marked("frontResinInclude1"), "Custom.1.03125in 1.03125in 1.03125in 1.03125in");
  EXPECT_EQ(copies, "2");
}

TEST_F(PagesWithPresets, ATextThatIsNoMeasurementIsNotSaved) {
  open();
  change("frontRibbon", "YMCK");
  change("frontResin", "DefinedAreas");
  typeArea("a little");
  saveAs("visitors");
  EXPECT_THAT(titles(), ElementsAre("Standard"));
  EXPECT_THAT(view.texts(), Contains(HasSubstr("is no measurement")));
}

TEST_F(PagesWithPresets, SaveWritesTheChosenOneAnew) {
  users("Dest card/visitors cardLaminate=Front number-up=2\n");
  open("visitors", {{"cardLaminate", "Front"}});
  change("cardLaminate", "Back");
  page->presets()->save();
  rest();
  EXPECT_THAT(usersLines(), HasSubstr("cardLaminate=\"Back\""));
  EXPECT_THAT(usersLines(), HasSubstr("number-up=\"2\""));
  EXPECT_EQ(view.presets.state, "");
}

TEST_F(PagesWithPresets, OnesOfTheAdministratorCanOnlyBeSavedAsTheUsersOwn) {
  folder.write("lpoptions", "Dest card/staff cardLaminate=Both\n");
  open();
  choose("staff (for everybody)");
  change("cardLaminate", "Front");
  EXPECT_FALSE(view.presets.canSave);
  EXPECT_FALSE(view.presets.canDelete);
  page->presets()->save();
  page->presets()->remove();
  rest();
  EXPECT_EQ(view.presets.state, "Modified");
  EXPECT_TRUE(page->presets()->judge("staff").isGood);
  EXPECT_THAT(page->presets()->judge("staff").told, HasSubstr("for everybody"));
  saveAs("staff");
  EXPECT_EQ(chosen(), "staff");
  EXPECT_EQ(view.presets.state, "");
  EXPECT_TRUE(view.presets.canDelete);
  page->presets()->remove();
  rest();
  EXPECT_EQ(chosen(), "staff (for everybody)");
  EXPECT_EQ(view.presets.state, "Modified");
}

TEST_F(PagesWithPresets, ADeletedOneLeavesTheJobAsItIsAndCanBePutBack) {
  users("Dest card/visitors cardLaminate=Front number-up=2\n");
  open("visitors", {{"cardLaminate", "Front"}});
  page->presets()->remove();
  rest();
  EXPECT_THAT(titles(), ElementsAre("Standard"));
  EXPECT_EQ(used, "");
  EXPECT_EQ(job->marked("cardLaminate"), "Front");
  EXPECT_EQ(view.presets.state, "Modified");
  EXPECT_TRUE(view.answer("The preset visitors was deleted.", "Undo"));
  rest();
  EXPECT_EQ(chosen(), "visitors");
  EXPECT_EQ(view.presets.state, "");
  EXPECT_THAT(usersLines(), HasSubstr("number-up=\"2\""));
  EXPECT_THAT(view.texts(), IsEmpty());
}

TEST_F(PagesWithPresets, NamesAreJudgedWhileTheyAreTyped) {
  users("Dest card/visitors cardLaminate=Front\n");
  open();
  const Presets& presets = *page->presets();
  EXPECT_FALSE(presets.judge("").isGood);
  EXPECT_EQ(presets.judge("").told, "");
  EXPECT_TRUE(presets.judge("guests").isGood);
  EXPECT_EQ(presets.judge("guests").told, "");
  EXPECT_TRUE(presets.judge("VISITORS").isGood);
  EXPECT_EQ(presets.judge("VISITORS").told, "visitors is there already, and will be replaced.");
  EXPECT_FALSE(presets.judge("two words").isGood);
  EXPECT_EQ(presets.judge("two words").told, "A preset's name cannot have spaces.");
  EXPECT_FALSE(presets.judge("standard").isGood);
  EXPECT_FALSE(presets.judge("").isGood);
}

TEST_F(PagesWithPresets, AFailureIsToldAndNothingIsChosen) {
  open();
  change("cardLaminate", "Front");
  folder.write("home/.cups", "no folder");
  saveAs("visitors");
  EXPECT_THAT(view.texts(), ElementsAre(HasSubstr("card/visitors cannot be saved: ")));
  EXPECT_EQ(chosen(), "Standard");
  EXPECT_EQ(view.presets.state, "Modified");
}

TEST_F(PagesWithPresets, ResetToDefaultsPutsThePrintersBackWhateverThePresetHas) {
  users("Dest card/visitors cardLaminate=Front\n");
  open("visitors", {{"cardLaminate", "Front"}});
  page->reset();
  rest();
  EXPECT_EQ(job->marked("cardLaminate"), "None");
  EXPECT_EQ(chosen(), "visitors");
  EXPECT_EQ(view.presets.state, "Modified");
}

TEST_F(PagesWithPresets, WithoutAQueueThereIsNoRow) {
  job = std::make_unique<host::JobOptions>(host::openPPD(test::duplexPPD()));
  panels = std::make_unique<host::PanelHost>(
      test::builtBundle(), std::make_shared<headless::HeadlessBundle>(test::builtBundle()), *job);
  page = std::make_unique<Page>(*panels, view);
  page->start();
  view.rest();
  EXPECT_THAT(view.presets.entries, IsEmpty());
  EXPECT_EQ(page->presets(), nullptr);
}

}  // namespace
}  // namespace cardpanels::dialog
