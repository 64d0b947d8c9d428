#include <gtest/gtest.h>

#include "apps/pde-drive/Script.h"

namespace cardpanels::drive {
namespace {

using Words = std::vector<platform::Text>;

TEST(Script, BlanksSeparateWords) {
  EXPECT_EQ(words("mark  cardLaminate\tFront"), (Words{"mark", "cardLaminate", "Front"}));
}

TEST(Script, QuotesKeepBlanksAndEscapes) {
  EXPECT_EQ(words(R"(type field "1\" 2\\ # in" "")"), (Words{"type", "field", "1\" 2\\ # in", ""}));
}

TEST(Script, ABareNilIsAbsentAndAQuotedOneIsAText) {
  EXPECT_EQ(words(R"(nil "nil")"), (Words{std::nullopt, "nil"}));
}

TEST(Script, ACommentStartsAtAWord) {
  EXPECT_EQ(withoutComment("  panels  # all of them"), "panels");
  EXPECT_EQ(withoutComment("# panels"), "");
  EXPECT_EQ(withoutComment("   "), "");
  EXPECT_EQ(withoutComment("mark key a#b"), "mark key a#b");
  EXPECT_EQ(withoutComment(R"(mark key "a # b")"), R"(mark key "a # b")");
}

TEST(Script, AnOpenQuoteIsAnError) { EXPECT_THROW(words("mark \"key"), CommandError); }

TEST(Script, AnUnknownEscapeIsAnError) { EXPECT_THROW(words(R"(mark "\q")"), CommandError); }

}  // namespace
}  // namespace cardpanels::drive
