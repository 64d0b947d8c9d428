#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "platform/Array.h"
#include "platform/Format.h"

namespace cardpanels::platform {
namespace {

template <class... Arguments>
std::string composed(std::string_view text, const Arguments&... arguments) {
  const std::array<Argument, sizeof...(Arguments)> typed{Argument(arguments)...};
  return formatted(text, typed);
}

TEST(Format, PutsObjectsAndTextsInPlace) {
  const auto array = std::make_shared<StringArray>(std::vector<std::string>{"a"});
  EXPECT_EQ(composed("%@ and %@", array, std::string("b")), "(a) and b");
}

TEST(Format, AnAbsentArgumentIsNull) {
  EXPECT_EQ(composed("%@ %@ %s %p", Text(), std::shared_ptr<StringArray>(),
                     static_cast<const char*>(nullptr), static_cast<const void*>(nullptr)),
            "(null) (null) (null) 0x0");
}

TEST(Format, PrintsTheAddressOfAnObject) {
  const auto array = std::make_shared<StringArray>();
  EXPECT_EQ(composed("%p", array), addressText(static_cast<const Object*>(array.get())));
}

TEST(Format, PrintsIntegersWhole) {
  EXPECT_EQ(composed("%i %i", INT64_MIN, INT64_MAX), "-9223372036854775808 9223372036854775807");
}

TEST(Format, TwoPercentSignsAreOne) { EXPECT_EQ(composed("100%% %s", "x"), "100% x"); }

TEST(Format, ConversionsWithoutArgumentsReadNothing) {
  EXPECT_EQ(composed("%@ %s %p %i %*.*s."), "(null) (null) 0x0 0 .");
}

TEST(Format, ConversionsOfAnotherKindReadNothing) {
  EXPECT_EQ(composed("%@ %s %p %i", 7, 7, "text", "text"), "(null) (null) 0x0 0");
  EXPECT_EQ(composed("%s %i", std::string("text"), std::string("text")), "(null) 0");
  const int there = 0;
  EXPECT_EQ(composed("%@", static_cast<const void*>(&there)), "(null)");
}

TEST(Format, WhatIsNoConversionStands) {
  EXPECT_EQ(composed("%", "x"), "%");
  EXPECT_EQ(composed("50% of %n %d %ld %5.2f, %s", "x"), "50% of %n %d %ld %5.2f, x");
}

TEST(Format, AnUnfinishedConversionTakesNoArgument) {
  EXPECT_EQ(composed("%*d %s", "x"), "%*d x");
  EXPECT_EQ(composed("%-*.", 3), "%-*.");
}

TEST(Format, WidthsAreBounded) {
  EXPECT_EQ(composed("%2000000000s", "x").size(), std::size_t{kMaximumFieldWidth});
  EXPECT_EQ(composed("%*s", INT64_MIN, "x").size(), std::size_t{kMaximumFieldWidth});
  EXPECT_EQ(composed("%.99999999999999999999i", 1).size(), std::size_t{kMaximumFieldWidth});
}

TEST(Format, APrecisionCutsNoCharacterInTwo) {
  EXPECT_EQ(composed("%.3s|%.4s", "日本", "aé日"), "日|aé");
}

struct PrintfCase {
  const char* format;
  int width;
  int precision;
};

class LikePrintf : public testing::TestWithParam<PrintfCase> {
 protected:
  std::string printf(const char* format, auto... arguments) {
    std::array<char, 256> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, arguments...);
    return buffer.data();
  }
};

TEST_P(LikePrintf, Texts) {
  const auto [conversion, width, precision] = GetParam();
  const std::string text = std::string("[%") + conversion + "s]";
  EXPECT_EQ(composed(text, width, precision, "card"),
            printf(text.c_str(), width, precision, "card"));
}

TEST_P(LikePrintf, Integers) {
  const auto [conversion, width, precision] = GetParam();
  const std::string text = std::string("[%") + conversion + "i]";
  for (const int value : {0, 7, -7, 12345}) {
    EXPECT_EQ(composed(text, width, precision, value),
              printf(text.c_str(), width, precision, value));
  }
}

INSTANTIATE_TEST_SUITE_P(Format, LikePrintf,
                         testing::Values(PrintfCase{"*.*", 8, 2}, PrintfCase{"*.*", -8, 2},
                                         PrintfCase{"*.*", 8, -2}, PrintfCase{"*.*", 0, 0},
                                         PrintfCase{"-*.*", 8, 9}, PrintfCase{"0*.*", 8, -1},
                                         PrintfCase{"0*.*", 8, 3}, PrintfCase{"-0*.*", 8, -1},
                                         PrintfCase{"+*.*", 6, 1}, PrintfCase{" *.*", 6, 2},
                                         PrintfCase{"+0*.*", 6, -1}));

}  // namespace
}  // namespace cardpanels::platform
