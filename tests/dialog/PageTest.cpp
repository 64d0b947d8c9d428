#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "dialog/MeasurementField.h"
#include "dialog/Page.h"
#include "platform/NibOwner.h"
#include "platform/TextField.h"

namespace cardpanels::dialog {
namespace {

using platform::Text;
using testing::ElementsAre;
using testing::IsEmpty;

class FakeField final : public platform::TextField, public MeasurementField {
 public:
  /// What the user does.
  void type(const std::string& typed) {
    text_ = typed;
    textChanged(true);
  }
  void leave() { endEdit(); }

  std::string stringValue() const override { return text_; }
  void setStringValue(const Text& text) override {
    text_ = text.value_or("");
    textChanged(false);
    textSet();
  }
  std::string text() const override { return text_; }
  std::string caption() const override { return "Width"; }
  void takeFocus() override { hasFocus = true; }
  void setHidden(bool /*hidden*/) override {}
  std::shared_ptr<platform::View> viewWithTag(std::int64_t /*tag*/) override { return nullptr; }
  std::string_view className() const override { return "TextField"; }

  bool hasFocus = false;
  Text why;

 private:
  bool isEditable() const override { return true; }
  void mark(const Text& reason) override { why = reason; }

  std::string text_;
};

/// A panel of one field, which stands for its view too.
class FieldPanel final : public platform::PrintPanel, public platform::NibOwner {
 public:
  explicit FieldPanel(std::string name) : name_(std::move(name)) {}

  std::shared_ptr<platform::View> panelView() override { return field; }
  Text panelName() override { return name_; }
  Text panelKind() override { return std::nullopt; }
  std::shared_ptr<platform::StringArray> supportedPPDOptionKeys() override { return nullptr; }
  void willShow() override {}
  bool shouldHide() override { return true; }
  bool shouldShowHelp() override { return true; }
  void PPDOptionKeyValueDidChange_ppdChoice(const Text&, const Text&) override {}
  bool restoreValuesAndReturnError(Text*) override { return true; }
  bool saveValuesAndReturnError(Text*) override { return true; }
  void updateMarkedSelections() override {}
  void updateUI() override {}
  void initializeUI() override {}
  std::shared_ptr<platform::Dictionary> summaryInfo() override { return nullptr; }
  std::string_view className() const override { return "FieldPanel"; }
  std::span<const platform::Outlet> outlets() const override {
    static constexpr std::array kOutlets{platform::outlet<&FieldPanel::field>("field")};
    return kOutlets;
  }
  std::span<const platform::Action> actions() const override { return {}; }

  std::shared_ptr<FakeField> field = std::make_shared<FakeField>();

 private:
  std::string name_;
};

/// Driver and view at once: notes in order what the page asks of either.
class Recorder final : public host::PanelDriver, public PageView {
 public:
  const std::vector<Panel>& panels() const override { return panels_; }
  std::shared_ptr<platform::View> view(const Panel& panel) override {
    note("load", panel);
    if (fails) throw std::runtime_error("no field");
    return panel->panelView();
  }
  void show(const Panel& panel) override { note("show", panel); }
  void hide(const Panel& panel) override { note("hide", panel); }
  void storeTyped(const Panel& panel) override { note("store", panel); }
  std::shared_ptr<platform::Dictionary> summary(const Panel& panel) const override {
    auto entries = std::make_shared<platform::Dictionary>();
    entries->setValueForKey(value, *panel->panelName());
    return entries;
  }

  void showSection(std::size_t section) override { note("section " + std::to_string(section)); }
  void fillSection(std::size_t section, const std::shared_ptr<platform::View>&) override {
    note("fill " + std::to_string(section));
  }
  void fillSectionWithText(std::size_t section, const std::string& text) override {
    note("fill " + std::to_string(section) + " with " + text);
  }
  void showSummary(const Summary& shown) override {
    summary_.clear();
    for (const auto& [name, entries] : shown) {
      summary_.push_back(name + " " + entries->begin()->second);
    }
  }
  void showMessage(const Message& shown) override { message = shown; }
  void later(std::function<void()> task) override { tasks.push_back(std::move(task)); }

  void add(const std::string& name) { panels_.push_back(std::make_shared<FieldPanel>(name)); }
  FakeField& field(std::size_t panel) { return *dynamic_cast<FieldPanel&>(*panels_[panel]).field; }
  std::vector<std::string> calls() { return std::exchange(calls_, {}); }
  const std::vector<std::string>& shownSummary() const { return summary_; }

  bool fails = false;
  std::string value = "None";
  Message message;
  std::vector<std::function<void()>> tasks;

 private:
  void note(const std::string& call) { calls_.push_back(call); }
  void note(const std::string& call, const Panel& panel) { note(call + " " + *panel->panelName()); }

  std::vector<Panel> panels_;
  std::vector<std::string> calls_;
  std::vector<std::string> summary_;
};

class Pages : public testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"Peel", "Laminate"}) recorder.add(name);
    page = std::make_unique<Page>(recorder, recorder);
    page->start();
    recorder.calls();
  }
  void TearDown() override { page.reset(); }

  Recorder recorder;
  std::unique_ptr<Page> page;
};

TEST_F(Pages, HasASectionForEachPanelAndTheSummaryAsTheLast) {
  std::vector<std::string> names;
  for (const auto& section : page->sections()) names.push_back(section.name);
  EXPECT_THAT(names, ElementsAre("Peel", "Laminate", "Summary"));
  EXPECT_EQ(page->sections().back().panel, nullptr);
  EXPECT_THAT(recorder.shownSummary(), ElementsAre("Peel None", "Laminate None"));
}

TEST_F(Pages, LoadsAPanelWhenItIsFirstSeen) {
  EXPECT_THAT(recorder.calls(), IsEmpty());
  page->appear();
  EXPECT_THAT(recorder.calls(), ElementsAre("load Peel", "fill 0", "show Peel"));
  page->disappear();
  page->appear();
  EXPECT_THAT(recorder.calls(), ElementsAre("hide Peel", "show Peel"));
}

TEST_F(Pages, HidesAPanelBeforeTheNextIsShown) {
  page->appear();
  recorder.calls();
  page->select(1);
  EXPECT_THAT(recorder.calls(),
              ElementsAre("hide Peel", "load Laminate", "fill 1", "show Laminate", "section 1"));
  page->select(1);
  EXPECT_THAT(recorder.calls(), IsEmpty());
  page->select(2);
  EXPECT_THAT(recorder.calls(), ElementsAre("hide Laminate", "section 2"));
}

TEST_F(Pages, ShowsThePanelThatWasChosenWhileThePageWasNotSeen) {
  page->select(1);
  EXPECT_THAT(recorder.calls(), ElementsAre("section 1"));
  page->appear();
  EXPECT_THAT(recorder.calls(), ElementsAre("load Laminate", "fill 1", "show Laminate"));
}

TEST_F(Pages, TellsInItsPlaceWhyAPanelHasNoView) {
  recorder.fails = true;
  page->appear();
  EXPECT_THAT(recorder.calls(), ElementsAre("load Peel", "fill 0 with no field", "show Peel"));
}

TEST_F(Pages, StoresWhatWasTypedWhenTheEditEnds) {
  page->appear();
  recorder.calls();
  recorder.field(0).type("1in");
  EXPECT_THAT(recorder.calls(), IsEmpty());
  recorder.field(0).leave();
  EXPECT_THAT(recorder.calls(), ElementsAre("store Peel"));
  recorder.field(0).leave();
  EXPECT_THAT(recorder.calls(), IsEmpty());
}

TEST_F(Pages, NeitherStoresNorLeavesATextThatIsNoMeasurement) {
  page->appear();
  recorder.field(0).type("abc");
  EXPECT_TRUE(recorder.field(0).why);
  recorder.field(0).leave();
  recorder.calls();
  page->select(1);
  EXPECT_THAT(recorder.calls(), ElementsAre("section 0"));
  EXPECT_EQ(recorder.message.text, "“Width” is no measurement: “abc”");
  EXPECT_EQ(recorder.message.kind, Message::Kind::error);
  EXPECT_TRUE(recorder.field(0).hasFocus);
  EXPECT_FALSE(page->hasOnlyGoodTexts());
  recorder.field(0).type("1in");
  EXPECT_FALSE(recorder.field(0).why);
  EXPECT_TRUE(page->hasOnlyGoodTexts());
  page->select(1);
  EXPECT_THAT(recorder.calls(), testing::Contains("section 1"));
}

TEST_F(Pages, WhatTheProgramSetsIsNoEdit) {
  page->appear();
  recorder.calls();
  recorder.field(0).type("1in");
  recorder.field(0).setStringValue("2in");
  recorder.field(0).leave();
  EXPECT_THAT(recorder.calls(), IsEmpty());
}

TEST_F(Pages, ReadsTheSummaryOnceAfterManyChanges) {
  recorder.value = "Front";
  page->optionsChanged();
  page->optionsChanged();
  EXPECT_THAT(recorder.shownSummary(), ElementsAre("Peel None", "Laminate None"));
  ASSERT_EQ(recorder.tasks.size(), 1U);
  recorder.tasks.front()();
  EXPECT_THAT(recorder.shownSummary(), ElementsAre("Peel Front", "Laminate Front"));
  page->optionsChanged();
  EXPECT_EQ(recorder.tasks.size(), 2U);
}

TEST_F(Pages, OffersToInsistOnlyWhereThatIsOffered) {
  int insisted = 0;
  page->tell("That would remove an area.", [&] { ++insisted; });
  EXPECT_TRUE(recorder.message.offersInsisting);
  page->insist();
  EXPECT_EQ(insisted, 1);
  EXPECT_EQ(recorder.message.text, "");
  page->insist();
  EXPECT_EQ(insisted, 1);
  page->tell("Something else.");
  EXPECT_FALSE(recorder.message.offersInsisting);
  EXPECT_EQ(recorder.message.kind, Message::Kind::warning);
  page->closeMessage();
  EXPECT_EQ(recorder.message.text, "");
}

TEST_F(Pages, ThatEndHideTheirPanelAndStoreNothingMore) {
  page->appear();
  recorder.calls();
  page.reset();
  EXPECT_THAT(recorder.calls(), ElementsAre("hide Peel"));
  recorder.field(0).type("1in");
  recorder.field(0).leave();
  EXPECT_THAT(recorder.calls(), IsEmpty());
}

TEST(PageOfNothing, HasNoSections) {
  Recorder recorder;
  Page page(recorder, recorder);
  page.start();
  page.appear();
  EXPECT_THAT(page.sections(), IsEmpty());
  EXPECT_TRUE(page.hasOnlyGoodTexts());
  EXPECT_THAT(recorder.calls(), IsEmpty());
}

}  // namespace
}  // namespace cardpanels::dialog
