#include <gtest/gtest.h>

#include "host/PPDText.h"

namespace cardpanels::host {
namespace {

std::vector<PPDStatement> statementsOf(const std::string& lines) {
  return ppdStatements("*PPD-Adobe: \"4.3\"\n" + lines, "card.ppd");
}

/// What is read for the text of a choice.
std::string textOf(const std::string& written) {
  return statementsOf("*X A/" + written + ": \"\"\n").back().text;
}

TEST(PPDText, HexadecimalDigitsOfEitherCaseAreBytes) {
  EXPECT_EQ(textOf("Gr<F6DF>e"),
            "Gr\xF6\xDF"
            "e");
  EXPECT_EQ(textOf("<c3b6>"), "\xC3\xB6");
  EXPECT_EQ(textOf("a<4F>b<4b>"), "aObK");
}

TEST(PPDText, AngleBracketsWithoutADigitStandForThemselves) {
  for (const char* text : {"a < b", "a > b", "a <", "<>", "<g6>", "<<"})
    EXPECT_EQ(textOf(text), text);
}

TEST(PPDText, HalfAByteIsNone) {
  EXPECT_EQ(textOf("a<6>b"), "ab");
  EXPECT_EQ(textOf("a<4F6>b"), "aOb");
  EXPECT_EQ(textOf("a<4Fg>b"), "aOb");
  EXPECT_EQ(textOf("a<4F"), "aO");
}

TEST(PPDText, AValueInQuotesMaySpanLines) {
  const auto all = statementsOf("*A: \"one\ntwo\"\n*% a remark: 6\" wide\n*B: three\n*C/Text\n");
  ASSERT_EQ(all.size(), 4U);
  EXPECT_EQ(all[1].keyword, "A");
  EXPECT_EQ(all[1].value, "\"one\ntwo\"");
  EXPECT_EQ(all[1].line, 2);
  EXPECT_EQ(all[2].value, "three");
  EXPECT_EQ(all[2].line, 5);
  EXPECT_EQ(all[3].value, "");
}

TEST(PPDText, AnOptionIsOpenedWithOrWithoutAnAsterisk) {
  const auto all = statementsOf("*OpenUI *A: PickOne\n*JCLOpenUI B: PickOne\n*X A: \"\"\n");
  EXPECT_EQ(openedOption(all[1]), "A");
  EXPECT_EQ(openedOption(all[2]), "B");
  EXPECT_EQ(openedOption(all[3]), "");
}

}  // namespace
}  // namespace cardpanels::host
