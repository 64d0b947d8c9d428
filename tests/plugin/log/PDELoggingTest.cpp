#include <gtest/gtest.h>

#include "plugin/log/PDELogging.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels {
namespace {

using Lines = std::vector<std::string>;

struct Panel final : platform::Object {
  std::string_view className() const override { return "Panel"; }
  void appendDescription(std::string& out) const override { out += text; }
  std::string text = "<Panel>";
};

class PDELogging : public testing::Test {
 protected:
  Panel panel;
  test::RecordedLog log;
};

TEST_F(PDELogging, BeginLogAndEndStandAtTheirDepthAndLeaveItAtZero) {
  _PDEProlog(&panel, "willShow:");
  _PDELog(&panel, "step");
  _PDEEpilog(&panel, "willShow:=void");
  _PDELog(&panel, "after");
  EXPECT_EQ(log.lines(), (Lines{"BEGIN self(<Panel>) willShow:", "    LOG self(<Panel>) step",
                                "END self(<Panel>) willShow:=void", "LOG self(<Panel>) after"}));
}

TEST_F(PDELogging, NestedCallsStandDeeper) {
  _PDEProlog(&panel, "a");
  _PDEProlog(&panel, "b");
  _PDELog(&panel, "c");
  _PDEEpilog(&panel, "b");
  _PDEEpilog(&panel, "a");
  EXPECT_EQ(log.lines(), (Lines{"BEGIN self(<Panel>) a", "    BEGIN self(<Panel>) b",
                                "        LOG self(<Panel>) c", "    END self(<Panel>) b",
                                "END self(<Panel>) a"}));
}

TEST_F(PDELogging, LabelsCompareCaseInsensitively) {
  trace::writeAll(&panel, "begin", "in");
  trace::writeAll(&panel, "end", "out");
  EXPECT_EQ(log.lines(), (Lines{"begin self(<Panel>) in", "end self(<Panel>) out"}));
}

TEST_F(PDELogging, ANilObjectPrintsLabelAndMessageOnlyAndLeavesTheDepth) {
  _PDEProlog(nullptr, "parseArea:");
  _PDELog(&panel, "step");
  _PDEEpilog(nullptr, "parseArea: done");
  _PDELog(&panel, "step");
  EXPECT_EQ(log.lines(), (Lines{"BEGIN parseArea:", "LOG self(<Panel>) step", "END parseArea: done",
                                "LOG self(<Panel>) step"}));
}

TEST_F(PDELogging, AnEndWithoutABeginIndentsTheFollowingLines) {
  _PDEEpilog(&panel, "end");
  _PDELog(&panel, "step");
  _PDEEpilog(&panel, "end");
  _PDELog(&panel, "step");
  _PDEProlog(&panel, "begin");
  _PDEProlog(&panel, "begin");
  EXPECT_EQ(log.lines(),
            (Lines{"    END self(<Panel>) end", "    LOG self(<Panel>) step",
                   "        END self(<Panel>) end", "        LOG self(<Panel>) step",
                   "        BEGIN self(<Panel>) begin", "    BEGIN self(<Panel>) begin"}));
}

TEST_F(PDELogging, ANilArgumentPrintsAsNullAndANilPointerAsZero) {
  _PDELog(&panel, "%@ %p", platform::Text(), static_cast<const void*>(nullptr));
  EXPECT_EQ(log.lines(), Lines{"LOG self(<Panel>) (null) 0x0"});
}

TEST_F(PDELogging, FillsTheCallersConversions) {
  _PDELog(&panel, "%@ %s %i", std::string("key"), "YES", 3);
  EXPECT_EQ(log.lines(), Lines{"LOG self(<Panel>) key YES 3"});
}

TEST_F(PDELogging, APercentSignInADescriptionIsAConversion) {
  panel.text = "<50%s>";
  _PDELog(&panel, "%s", "argument");
  EXPECT_EQ(log.lines(), Lines{"LOG self(<50argument>) (null)"});
}

TEST_F(PDELogging, ADescriptionThatLogsStandsInItsOwnLineAfterWhatItLogged) {
  struct Talkative final : platform::Object {
    std::string_view className() const override { return "Talkative"; }
    void appendDescription(std::string& out) const override {
      out += "<half";
      _PDELog(nullptr, "described: %s", "inside");
      out += " whole>";
    }
  };
  const Talkative talkative;
  _PDELog(&talkative, "%@ and %12@", &talkative, &panel);
  const std::string inside = "LOG described: inside";
  EXPECT_EQ(log.lines(),
            (Lines{inside, inside, "LOG self(<half whole>) <half whole> and      <Panel>"}));
}

TEST_F(PDELogging, AHostileDescriptionReadsNothingThatIsNotThere) {
  panel.text = "<%n%@%s%p%i%*.*s%999999999s%>";
  _PDELog(&panel, "message");
  ASSERT_EQ(log.lines().size(), 1U);
}

}  // namespace
}  // namespace cardpanels
