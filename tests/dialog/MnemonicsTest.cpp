#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dialog/Mnemonics.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;

TEST(Mnemonics, AreTheFilesWhereTheTitleHasThem) {
  EXPECT_THAT(withMnemonics({{"_Laminate", "Thermal Laminate"}}, {}),
              ElementsAre("Thermal _Laminate"));
  EXPECT_THAT(withMnemonics({{"Front re_sin", "FRONT RESIN"}}, {}), ElementsAre("FRONT RE_SIN"));
}

TEST(Mnemonics, StandAtTheStartOfAWordRatherThanEarlierInAnother) {
  EXPECT_THAT(withMnemonics({{"_Resin", "Front Resin"}, {"_Flip", "Flip off"}}, {}),
              ElementsAre("Front _Resin", "_Flip off"));
  EXPECT_THAT(withMnemonics({{"_N", "sand and none"}}, {}), ElementsAre("sand and _none"));
}

TEST(Mnemonics, OfACaptionWithoutTitleAreTheFiles) {
  EXPECT_THAT(withMnemonics({{"Back re_sin", std::nullopt}, {"リボン(_F)", std::nullopt}}, {}),
              ElementsAre("Back re_sin", "リボン(_F)"));
}

TEST(Mnemonics, AreTheFirstFreeLetterOfTheTitleElse) {
  EXPECT_THAT(withMnemonics({{"_Front", "Front"}, {"_Back", "Foil"}}, {"_Ok"}),
              ElementsAre("_Front", "Fo_il"));
}

TEST(Mnemonics, StandInParenthesesAfterATitleWithoutAFreeLetter) {
  EXPECT_THAT(withMnemonics({{"_Front", "表面"}, {"_Front", "裏面"}, {"_Back", "ab"}}, {"_A"}),
              ElementsAre("表面(_F)", "裏面(_C)", "a_b"));
}

TEST(Mnemonics, LeaveTheLettersOutsideThePanelAlone) {
  EXPECT_THAT(withMnemonics({{"_Print twice", "Print twice"}, {"_Copies", std::nullopt}},
                            {"_Print", "__x _Cancel"}),
              ElementsAre("P_rint twice", "C_opies"));
}

TEST(Mnemonics, OfPagesThatNeverShowAtOnceMayBeTheSame) {
  const int tabs = 0;
  const int other = 0;
  EXPECT_THAT(
      withMnemonics(
          {{"_1", "Area 1", &tabs, 0}, {"_1", "Area 1", &tabs, 1}, {"_1", "Area 1", &other, 1}},
          {}),
      ElementsAre("Area _1", "Area _1", "_Area 1"));
}

TEST(Mnemonics, MarkNoUnderscoreOfATitle) {
  EXPECT_THAT(withMnemonics({{"_Back", "UV_back"}, {"_9", "_"}}, {}),
              ElementsAre("UV___back", "__(_9)"));
}

TEST(Mnemonics, EndWithTheLetters) {
  std::vector<MnemonicCaption> captions(37, {"_A", "表"});
  const auto texts = withMnemonics(captions, {});
  EXPECT_EQ(texts.front(), "表(_A)");
  EXPECT_EQ(texts[35], "表(_9)");
  EXPECT_EQ(texts.back(), "表");
}

}  // namespace
}  // namespace cardpanels::dialog
