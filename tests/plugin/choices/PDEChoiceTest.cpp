#include <gtest/gtest.h>

#include "platform/Format.h"
#include "plugin/choices/PDEChoice.h"
#include "tests/plugin/choices/OptionRecord.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels {
namespace {

class Choice : public testing::Test {
 protected:
  test::OptionRecord option{
      "Ribbon",
      "Mono",
      {{"YMCK", "Farbe"}, {"Mono", "Schwarz – Größe"}, {"UV", "UV"}, {"None", ""}}};
};

TEST_F(Choice, HasTheTextAsUserTitleAndTheKeywordAsPPDTitle) {
  const auto choice = PDEChoice::choiceWithChoice(option.choice(1));
  EXPECT_EQ(choice->userTitle(), "Schwarz – Größe");
  EXPECT_EQ(choice->ppdTitle(), "Mono");
  EXPECT_EQ(choice->choice(), option.choice(1));
}

TEST_F(Choice, TwoWrappersOfOneRecordAreDistinct) {
  EXPECT_NE(PDEChoice::choiceWithChoice(option.choice(0)),
            PDEChoice::choiceWithChoice(option.choice(0)));
}

TEST_F(Choice, IsTheDefaultEvenWhenAnotherIsMarked) {
  option.choice(0)->marked = 1;
  EXPECT_TRUE(PDEChoice::choiceWithChoice(option.choice(1))->isDefaultChoice());
  EXPECT_FALSE(PDEChoice::choiceWithChoice(option.choice(0))->isDefaultChoice());
}

TEST_F(Choice, IsNotTheDefaultInAnotherCase) {
  test::OptionRecord lower("Ribbon", "mono", {{"Mono", "Mono"}});
  EXPECT_FALSE(PDEChoice::choiceWithChoice(lower.choice(0))->isDefaultChoice());
}

TEST_F(Choice, IsDescribedByTitlesMarkAndPlace) {
  option.choice(2)->marked = 1;
  const auto choice = PDEChoice::choiceWithChoice(option.choice(2));
  EXPECT_EQ(choice->description(),
            "<PDEChoice " + platform::addressText(choice.get()) +
                " userTitle:\"UV\" ppdTitle:\"UV\" marked:YES choice:3 of 4>");
}

TEST_F(Choice, IsDescribedByTheMarkOfNow) {
  const auto choice = PDEChoice::choiceWithChoice(option.choice(2));
  EXPECT_NE(choice->description().find("marked:NO"), std::string::npos);
  option.choice(2)->marked = 1;
  EXPECT_NE(choice->description().find("marked:YES"), std::string::npos);
}

TEST_F(Choice, OutsideItsOptionsArrayHasPlaceZero) {
  ppd_choice_t stray = *option.choice(2);
  EXPECT_NE(PDEChoice::choiceWithChoice(&stray)->description().find("choice:0 of 4>"),
            std::string::npos);
}

TEST_F(Choice, MakesItsTitlesOnce) {
  const auto choice = PDEChoice::choiceWithChoice(option.choice(0));
  EXPECT_EQ(choice->userTitle(), "Farbe");
  option.choice(0)->text[0] = 'f';
  EXPECT_EQ(choice->userTitle(), "Farbe");
}

TEST(ChoiceClass, SaysItsEncodingOnceBeforeFirstUse) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // in a process of its own, from the start
  test::OptionRecord option("Ribbon", "", {{"a", "a"}});
  EXPECT_EXIT(
      {
        test::RecordedLog log;
        PDEChoice::choiceWithChoice(option.choice(0));
        PDEChoice::choiceWithChoice(option.choice(0));
        const auto lines = log.lines();
        const bool once = lines == std::vector<std::string>{"LOG Encoding set as 4"};
        std::_Exit(once ? 0 : 1);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace cardpanels
