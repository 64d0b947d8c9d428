#include <gtest/gtest.h>

#include "apps/pde-drive/Script.h"

namespace cardpanels::drive {
namespace {

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

TEST(Script, TooFewOrTooManyArgumentsAreTold) {
  EXPECT_NO_THROW(expectCount({"a"}, 1, 2));
  EXPECT_NO_THROW(expectCount({"a", "b"}, 1, 2));
  for (const Words& arguments : {Words{}, Words{"a", "b", "c"}}) {
    try {
      expectCount(arguments, 1, 2);
      ADD_FAILURE();
    } catch (const CommandError& error) {
      EXPECT_EQ(error.what(), "takes 1 to 2 arguments, not " + std::to_string(arguments.size()));
    }
  }
}

}  // namespace
}  // namespace cardpanels::drive
