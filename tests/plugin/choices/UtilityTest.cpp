#include <gtest/gtest.h>

#include "plugin/choices/Utility.h"
#include "ports/headless/Controls.h"
#include "tests/plugin/choices/OptionRecord.h"

namespace cardpanels {
namespace {

class Helpers : public testing::Test {
 protected:
  test::OptionRecord option{"Größe", "B", {{"A", "first"}, {"B", "second"}, {"C", "third"}}};
  std::shared_ptr<ChoiceArray> choices = ArrayFromPPDOption(option.get());
};

TEST_F(Helpers, AnArrayHasTheChoicesInThePPDsOrder) {
  ASSERT_EQ(choices->size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ((*choices)[i]->choice(), option.choice(i));
}

TEST_F(Helpers, NoOptionGivesNoArray) { EXPECT_EQ(ArrayFromPPDOption(nullptr), nullptr); }

TEST_F(Helpers, AnOptionWithoutChoicesGivesAnEmptyArray) {
  test::OptionRecord empty("Empty", "", {});
  EXPECT_TRUE(ArrayFromPPDOption(empty.get())->empty());
  empty.get()->num_choices = -1;
  EXPECT_TRUE(ArrayFromPPDOption(empty.get())->empty());
}

TEST_F(Helpers, AKeywordFindsItsChoice) {
  EXPECT_EQ(FindChoiceForString(platform::Text("C"), choices), (*choices)[2]);
}

TEST_F(Helpers, AKeywordDifferingOnlyInCaseFindsNothing) {
  EXPECT_EQ(FindChoiceForString(platform::Text("c"), choices), nullptr);
}

TEST_F(Helpers, AUserTitleFindsNothing) {
  EXPECT_EQ(FindChoiceForString(platform::Text("third"), choices), nullptr);
}

TEST_F(Helpers, NoKeywordFindsTheDefault) {
  EXPECT_EQ(FindChoiceForString(std::nullopt, choices), (*choices)[1]);
}

TEST_F(Helpers, NoKeywordAndNoDefaultFindsNothing) {
  test::OptionRecord without("Option", "Z", {{"A", "a"}});
  EXPECT_EQ(FindChoiceForString(std::nullopt, ArrayFromPPDOption(without.get())), nullptr);
}

TEST_F(Helpers, OfTwoDefaultsTheFirstIsFound) {
  test::OptionRecord twice("Option", "B", {{"A", "a"}, {"B", "b"}, {"B", "again"}});
  const auto array = ArrayFromPPDOption(twice.get());
  EXPECT_EQ(FindChoiceForString(std::nullopt, array), (*array)[1]);
}

TEST_F(Helpers, NothingIsFoundInNoArray) {
  EXPECT_EQ(FindChoiceForString(platform::Text("A"), nullptr), nullptr);
}

TEST_F(Helpers, APopUpHasExactlyTheChoicesAsItems) {
  const auto popUp = std::make_shared<headless::PopUpButton>();
  popUp->menu()->addItem(
      platform::MenuItem::initWithTitle_action_keyEquivalent("earlier", std::nullopt, ""));
  InitPopUpFromArray(popUp, choices);
  ASSERT_EQ(popUp->items().size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(popUp->items()[i]->title(), (*choices)[i]->userTitle());
    EXPECT_EQ(popUp->items()[i]->representedObject(), (*choices)[i]);
    EXPECT_EQ(popUp->items()[i]->action(), std::nullopt);
    EXPECT_EQ(popUp->items()[i]->keyEquivalent(), "");
  }
}

TEST_F(Helpers, AnEmptyArrayEmptiesThePopUp) {
  const auto popUp = std::make_shared<headless::PopUpButton>();
  InitPopUpFromArray(popUp, choices);
  InitPopUpFromArray(popUp, std::make_shared<ChoiceArray>());
  EXPECT_TRUE(popUp->items().empty());
}

TEST_F(Helpers, NoPopUpIsPassedOver) { InitPopUpFromArray(nullptr, choices); }

TEST_F(Helpers, AnOptionsTitleIsItsText) { EXPECT_EQ(CreateOptionTitle(option.get()), "Größe"); }

TEST_F(Helpers, ATitleThatIsNotUTF8IsNothing) {
  test::OptionRecord bad(
      "Gr\xF6\xDF"
      "e",
      "", {{"A", "a"}});
  EXPECT_EQ(CreateOptionTitle(bad.get()), std::nullopt);
}

}  // namespace
}  // namespace cardpanels
