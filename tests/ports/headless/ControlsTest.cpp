#include <gtest/gtest.h>

#include <array>

#include "ports/headless/Controls.h"

namespace cardpanels::headless {
namespace {

struct Owner final : platform::NibOwner {
  int changes = 0;
  std::shared_ptr<platform::Object> sender;

  void change(const std::shared_ptr<platform::Object>& who) {
    ++changes;
    sender = who;
  }
  std::span<const platform::Outlet> outlets() const override { return {}; }
  std::span<const platform::Action> actions() const override {
    static constexpr std::array kActions{platform::action<Owner, &Owner::change>("change:")};
    return kActions;
  }
};

class PopUp : public testing::Test {
 protected:
  PopUp() {
    for (const char* title : {"a", "b", "c"}) {
      popUp->menu()->addItem(
          platform::MenuItem::initWithTitle_action_keyEquivalent(title, std::nullopt, ""));
    }
    popUp->setAction({owner, *owner->actionNamed("change:")});
  }
  std::shared_ptr<Owner> owner = std::make_shared<Owner>();
  std::shared_ptr<PopUpButton> popUp = std::make_shared<PopUpButton>();
};

TEST_F(PopUp, SelectsNothingByItself) { EXPECT_EQ(popUp->indexOfSelectedItem(), -1); }

TEST_F(PopUp, TheProgramsSelectionFiresNothing) {
  popUp->selectItemAtIndex(1);
  EXPECT_EQ(popUp->indexOfSelectedItem(), 1);
  EXPECT_EQ(owner->changes, 0);
}

TEST_F(PopUp, TheUsersSelectionFiresTheActionWithThePopUpAsSender) {
  popUp->userSelects(2);
  EXPECT_EQ(popUp->indexOfSelectedItem(), 2);
  EXPECT_EQ(owner->changes, 1);
  EXPECT_EQ(owner->sender, popUp);
}

TEST_F(PopUp, AnIndexWithoutItemSelectsNone) {
  for (const std::int64_t index : {-1, 3}) {
    popUp->selectItemAtIndex(index);
    EXPECT_EQ(popUp->indexOfSelectedItem(), -1);
  }
}

TEST_F(PopUp, WithoutItemsHasNoSelection) {
  popUp->selectItemAtIndex(1);
  popUp->removeAllItems();
  EXPECT_TRUE(popUp->items().empty());
  EXPECT_EQ(popUp->indexOfSelectedItem(), -1);
}

TEST_F(PopUp, DoesNotKeepItsOwnerAlive) {
  const std::weak_ptr<Owner> gone = owner;
  owner.reset();
  EXPECT_TRUE(gone.expired());
  popUp->userSelects(0);
}

TEST(View, FindsATaggedViewInside) {
  const auto outer = std::make_shared<View>();
  const auto inner = std::make_shared<View>();
  const auto field = std::make_shared<TextField>(TextField::Use::entry);
  field->setTag(7);
  inner->addSubview(field);
  outer->addSubview(inner);
  EXPECT_EQ(outer->viewWithTag(7), field);
  EXPECT_EQ(outer->viewWithTag(8), nullptr);
}

TEST(TextField, ShowsNothingForAnAbsentText) {
  TextField field(TextField::Use::entry);
  field.setStringValue("1in");
  EXPECT_EQ(field.stringValue(), "1in");
  field.setStringValue(std::nullopt);
  EXPECT_EQ(field.stringValue(), "");
}

TEST(View, IsHiddenAndShownAgain) {
  View view;
  view.setHidden(true);
  EXPECT_TRUE(view.isHidden());
  view.setHidden(false);
  EXPECT_FALSE(view.isHidden());
}

}  // namespace
}  // namespace cardpanels::headless
