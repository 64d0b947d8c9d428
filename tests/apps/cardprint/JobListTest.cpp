#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apps/cardprint/JobList.h"

namespace cardpanels::cardprint {
namespace {

using host::Option;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

JobLine only(const std::string& text) {
  const auto lines = parseJobList(text);
  EXPECT_THAT(lines, SizeIs(1)) << text;
  return lines.empty() ? JobLine() : lines.front();
}

TEST(JobList, HasAFileALineAndOptionsBehindIt) {
  const auto lines = parseJobList("a.png\n  b.png\tcopies=2  landscape nofitplot\r\n");
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].file, "a.png");
  EXPECT_THAT(lines[0].options, IsEmpty());
  EXPECT_EQ(lines[1].file, "b.png");
  EXPECT_THAT(lines[1].options, ElementsAre(Option{"copies", "2"}, Option{"landscape", "true"},
                                            Option{"fitplot", "false"}));
}

TEST(JobList, SkipsBlankLinesAndRemarksAndCountsThem) {
  const auto lines = parseJobList("# a list\n\n \t\n  # more\na#b.png\n\nc.png");
  ASSERT_THAT(lines, SizeIs(2));
  EXPECT_EQ(lines[0].number, 5);
  EXPECT_EQ(lines[0].file, "a#b.png");
  EXPECT_EQ(lines[1].number, 7);
  EXPECT_THAT(parseJobList(""), IsEmpty());
}

TEST(JobList, KnowsTheShellsQuotesAndBackslashes) {
  EXPECT_EQ(only("'a b'\" c\".png").file, "a b c.png");
  EXPECT_EQ(only("a\\ b\\\\.png").file, "a b\\.png");
  EXPECT_EQ(only("\"a\\\"\\\\\\n'\"").file, "a\"\\\\n'");
  EXPECT_EQ(only("'a\\\"'").file, "a\\\"");
  EXPECT_THAT(only("a.png area=\"1in 1in 2in 2in\" text='x=\"y\" z'").options,
              ElementsAre(Option{"area", "1in 1in 2in 2in"}, Option{"text", "x=\"y\" z"}));
}

TEST(JobList, TellsWhatCannotBeRead) {
  EXPECT_THAT(only("a.png 'b=1").faults, SizeIs(1));
  EXPECT_THAT(only("a.png =1 b=1 \"\"").faults, SizeIs(2));
  EXPECT_THAT(only("a.png b=1").faults, IsEmpty());
}

}  // namespace
}  // namespace cardpanels::cardprint
