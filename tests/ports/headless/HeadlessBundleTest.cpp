#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::headless {
namespace {

/// A panel's owner with every kind of outlet.
struct PanelOwner final : platform::NibOwner {
  std::shared_ptr<platform::View> pdeView;
  std::shared_ptr<platform::PopUpButton> popUp;
  std::shared_ptr<platform::TextField> label;
  std::shared_ptr<platform::TextField> field;
  std::shared_ptr<platform::TabView> tabs;
  int changes = 0;

  void change(const std::shared_ptr<platform::Object>& /*sender*/) { ++changes; }

  std::span<const platform::Outlet> outlets() const override {
    static constexpr std::array kOutlets{platform::outlet<&PanelOwner::pdeView>("pdeView"),
                                         platform::outlet<&PanelOwner::popUp>("popUp"),
                                         platform::outlet<&PanelOwner::label>("label"),
                                         platform::outlet<&PanelOwner::field>("field"),
                                         platform::outlet<&PanelOwner::tabs>("tabs")};
    return kOutlets;
  }
  std::span<const platform::Action> actions() const override {
    static constexpr std::array kActions{
        platform::action<PanelOwner, &PanelOwner::change>("change:")};
    return kActions;
  }
};

constexpr const char* kFile = R"(<?xml version="1.0"?>
<interface>
  <object class="GtkGrid" id="pdeView">
    <child>
      <object class="GtkLabel" id="label">
        <property name="label">Caption</property>
        <property name="name">tag-3</property>
      </object>
    </child>
    <child>
      <object class="GtkComboBoxText" id="popUp">
        <property name="sensitive">False</property>
        <items><item>one</item><item>two</item></items>
        <signal name="changed" handler="change:"/>
      </object>
    </child>
    <child>
      <object class="GtkNotebook" id="tabs">
        <property name="visible">False</property>
        <child><object class="GtkEntry" id="field"><property name="text">1in</property></object></child>
        <child type="tab"><object class="GtkLabel"/></child>
      </object>
    </child>
  </object>
</interface>
)";

class Loading : public testing::Test {
 protected:
  /// Loads `text` as a panel's file and answers the error, "" for none.
  std::string load(const std::string& text) {
    folder.write("resources/ui/Panel.ui", text);
    HeadlessBundle bundle(folder.path().string());
    view = bundle.loadNibNamed_owner("Panel", owner);
    EXPECT_EQ(view == nullptr, bundle.loadError().has_value());
    return bundle.loadError().value_or("");
  }

  static std::string with(const std::string& from, const std::string& to) {
    std::string text = kFile;
    return text.replace(text.find(from), from.size(), to);
  }

  test::TemporaryFolder folder;
  std::string path = (folder.path() / "resources/ui/Panel.ui").string();
  std::shared_ptr<PanelOwner> owner = std::make_shared<PanelOwner>();
  std::shared_ptr<platform::View> view;
};

TEST_F(Loading, ConnectsEveryKindOfOutlet) {
  ASSERT_EQ(load(kFile), "");
  EXPECT_EQ(owner->pdeView, view);
  EXPECT_EQ(owner->label->stringValue(), "Caption");
  EXPECT_EQ(owner->field->stringValue(), "1in");
  EXPECT_EQ(view->viewWithTag(3), owner->label);
}

TEST_F(Loading, TakesTheFilesStateOver) {
  load(kFile);
  const auto popUp = std::dynamic_pointer_cast<PopUpButton>(owner->popUp);
  ASSERT_EQ(popUp->items().size(), 2U);
  EXPECT_EQ(popUp->items()[1]->title(), "two");
  EXPECT_FALSE(popUp->isEnabled());
  EXPECT_TRUE(std::dynamic_pointer_cast<TabView>(owner->tabs)->isHidden());
}

TEST_F(Loading, CallsAFieldAsAssistiveTechnologyDoes) {
  load(with("<property name=\"text\">1in</property>", R"(
        <child internal-child="accessible">
          <object class="AtkObject">
            <property name="AtkObject::accessible-name">Left edge</property>
          </object>
        </child>)"));
  EXPECT_EQ(dynamic_cast<TextField&>(*owner->field).caption(), "Left edge");
}

TEST_F(Loading, AimsTheActionsAtTheOwner) {
  load(kFile);
  std::dynamic_pointer_cast<PopUpButton>(owner->popUp)->userSelects(0);
  EXPECT_EQ(owner->changes, 1);
}

TEST_F(Loading, TheTopViewOwnsTheControls) {
  load(kFile);
  const std::weak_ptr<platform::PopUpButton> popUp = owner->popUp;
  owner = std::make_shared<PanelOwner>();
  EXPECT_FALSE(popUp.expired());
  view.reset();
  EXPECT_TRUE(popUp.expired());
}

TEST_F(Loading, NamesAnIdThatNobodyOwns) {
  EXPECT_EQ(load(with("<object class=\"GtkLabel\"/>", "<object class=\"GtkLabel\" id=\"page\"/>")),
            path + ": no outlet has the id \"page\"");
}

TEST_F(Loading, NamesAnOutletThatTheFileLacks) {
  EXPECT_EQ(load(with(" id=\"field\"", "")), path + ": nothing has the id of the outlet \"field\"");
}

TEST_F(Loading, NamesAHandlerThatNobodyAnswers) {
  EXPECT_EQ(load(with("change:", "changed:")), path + ": no action has the name \"changed:\"");
}

TEST_F(Loading, NamesAnOutletOfTheWrongKind) {
  EXPECT_EQ(load(with("GtkNotebook", "GtkBox")),
            path + ": the outlet \"tabs\" does not take a View");
  EXPECT_EQ(owner->popUp, nullptr);
}

TEST_F(Loading, NamesTheLineThatIsNoXML) {
  for (const std::string before : {"", "\n", "\n\n\n"}) {
    const std::string line = std::to_string(1 + before.size());
    EXPECT_THAT(load("<interface>" + before + "<object class=GtkGrid/></interface>\n"),
                testing::StartsWith(path + ":" + line + ": "));
  }
}

TEST_F(Loading, NamesAFileWithoutObjects) {
  EXPECT_EQ(load("<interface/>"), path + ": no object inside an interface");
}

TEST_F(Loading, NamesAFileThatIsNotThere) {
  HeadlessBundle bundle("/nowhere");
  EXPECT_EQ(bundle.loadNibNamed_owner("Panel", owner), nullptr);
  EXPECT_EQ(bundle.loadError(), "/nowhere/resources/ui/Panel.ui: No such file or directory");
}

TEST_F(Loading, SucceedsAfterAFailure) {
  folder.write("resources/ui/Panel.ui", kFile);
  HeadlessBundle bundle(folder.path().string());
  bundle.loadNibNamed_owner("Missing", owner);
  EXPECT_NE(bundle.loadNibNamed_owner("Panel", owner), nullptr);
  EXPECT_EQ(bundle.loadError(), std::nullopt);
}

TEST(Strings, AnUnknownKeyAnswersTheValueOrItself) {
  HeadlessBundle bundle("/nowhere");
  EXPECT_EQ(bundle.localizedStringForKey_value_table("Key", "value", std::nullopt), "value");
  EXPECT_EQ(bundle.localizedStringForKey_value_table("Key", std::nullopt, std::nullopt), "Key");
}

}  // namespace
}  // namespace cardpanels::headless
