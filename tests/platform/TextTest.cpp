#include <gtest/gtest.h>

#include "platform/Text.h"

namespace cardpanels::platform {
namespace {

TEST(Text, ComesFromValidBytesOnly) {
  EXPECT_EQ(stringWithCString("Größe", StringEncoding::utf8), "Größe");
  EXPECT_EQ(stringWithCString("Gr\xF6\xDF"
                              "e",
                              StringEncoding::utf8),
            std::nullopt);
  EXPECT_EQ(stringWithCString("Front", StringEncoding::ascii), "Front");
  EXPECT_EQ(stringWithCString("Größe", StringEncoding::ascii), std::nullopt);
  EXPECT_EQ(stringWithCString("Front", StringEncoding::none), std::nullopt);
}

TEST(Text, DoesNotComeFromNothing) {
  EXPECT_EQ(stringWithCString(nullptr, StringEncoding::utf8), std::nullopt);
}

TEST(Text, IsBytesOnlyWhereTheEncodingCanSayIt) {
  const Text plain = "1in";
  const Text sign = "1″";
  EXPECT_STREQ(cStringUsingEncoding(plain, StringEncoding::ascii), "1in");
  EXPECT_EQ(cStringUsingEncoding(sign, StringEncoding::ascii), nullptr);
  EXPECT_STREQ(cStringUsingEncoding(sign, StringEncoding::utf8), "1″");
  EXPECT_EQ(cStringUsingEncoding(std::nullopt, StringEncoding::utf8), nullptr);
}

class BadUTF8 : public testing::TestWithParam<const char*> {};

TEST_P(BadUTF8, IsFound) { EXPECT_FALSE(isUTF8(GetParam())); }

INSTANTIATE_TEST_SUITE_P(Text, BadUTF8,
                         testing::Values("\x80", "\xC3", "\xC0\xAF", "\xE0\x80\xAF",
                                         "\xED\xA0\x80",      // a surrogate
                                         "\xF0\x80\x80\xAF",  // overlong
                                         "\xF4\x90\x80\x80",  // past U+10FFFF
                                         "\xF5\x80\x80\x80", "a\xE6\x97"));

TEST(Text, EveryLengthOfUTF8IsValid) { EXPECT_TRUE(isUTF8("aé日😀")); }

TEST(Text, NothingHasNoCharacter) { EXPECT_EQ(utf8CharacterLength(""), 0U); }

TEST(Text, StaysOnOneLine) {
  EXPECT_EQ(onOneLine("a\nb\r\tc\x1B[31m\x7F"), R"(a\nb\r\tc\x1b[31m\x7f)");
}

TEST(Text, OnOneLineKeepsWhatIsPrintable) { EXPECT_EQ(onOneLine("Größe 日本 😀"), "Größe 日本 😀"); }

TEST(Text, OnOneLineEscapesTerminalCommandsAndStrayBytes) {
  EXPECT_EQ(onOneLine("a\xC2\x9B"
                      "b\xFF"),
            R"(a\xc2\x9bb\xff)");
}

}  // namespace
}  // namespace cardpanels::platform
