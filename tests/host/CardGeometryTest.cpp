#include <gtest/gtest.h>

#include "host/CardGeometry.h"
#include "host/JobOptions.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using Margins = CardGeometry::Margins;

constexpr double kPoint = 0.001;

JobOptions jobOf(const std::string& ppd) {
  const test::TemporaryFolder folder;
  return JobOptions(openPPD(folder.write("card.ppd", ppd)));
}

JobOptions jobWith(const std::string& lines) { return jobOf(test::testPPD({}, lines)); }

/// A pick-one option whose choices, the first one the default, set something in the printer.
std::string option(const std::string& keyword,
                   const std::vector<std::pair<std::string, std::string>>& choices) {
  const std::string opened = "*OpenUI *" + keyword + "/" + keyword + ": PickOne\n*Default";
  std::string text = opened + keyword + ": " + choices.at(0).first + "\n";
  for (const auto& [name, code] : choices) {
    text.append("*").append(keyword).append(" ").append(name);
    text.append(": \"").append(code).append("\"\n");
  }
  return text + "*CloseUI: *" + keyword + "\n";
}

void expectResolution(const JobOptions& job, double across, double down) {
  const CardGeometry card = cardGeometry(job);
  EXPECT_TRUE(card.hasResolution);
  EXPECT_EQ(card.dotsPerInchAcross, across);
  EXPECT_EQ(card.dotsPerInchDown, down);
}

void expectSize(const JobOptions& job, double width, double height) {
  const CardGeometry card = cardGeometry(job);
  EXPECT_TRUE(card.hasSize());
  EXPECT_NEAR(card.width, width, kPoint);
  EXPECT_NEAR(card.height, height, kPoint);
}

const char* const kCustomPageSize =
    "*CustomPageSize True/Custom: \"pop\"\n*ParamCustomPageSize Width: 1 points 36 300\n"
    "*ParamCustomPageSize Height: 2 points 36 400\n*ParamCustomPageSize WidthOffset: 3 points 0 0\n"
    "*ParamCustomPageSize HeightOffset: 4 points 0 0\n*ParamCustomPageSize Orientation: 5 int 0 3\n"
    "*HWMargins: 1 2 3 4\n*VariablePaperSize: True\n*MaxMediaWidth: \"300\"\n"
    "*MaxMediaHeight: \"400\"\n*NonUIOrderDependency: 10 AnySetup *CustomPageSize\n";

TEST(CardGeometry, HasTheSizeAndResolutionOfTheSampleCard) {
  const JobOptions job(openPPD(test::duplexPPD()));
  expectSize(job, 242.65, 153.01);
  expectResolution(job, 300, 300);
  EXPECT_EQ(cardGeometry(job).margins, Margins());
  EXPECT_FALSE(cardGeometry(job).countsFromBottom);
}

TEST(CardGeometry, FollowsTheMarkedPageSize) {
  JobOptions job(openPPD(test::duplexPPD()));
  job.mark("PageSize", "CR79");
  expectSize(job, 237.83, 144.57);
  job.mark("PageRegion", "CR100");  // takes the place of the page size
  expectSize(job, 279.21, 189.92);
  job.unmark("PageRegion");
  expectSize(job, 242.65, 153.01);
}

TEST(CardGeometry, KnowsACustomPageSizeAndItsMargins) {
  JobOptions job = jobWith(kCustomPageSize);
  ASSERT_TRUE(job.request("PageSize", "Custom.2x3.5in").granted);
  expectSize(job, 144, 252);
  ASSERT_TRUE(job.request("PageSize", "Custom.54x85.6mm").granted);
  expectSize(job, 54 * 72 / 25.4, 85.6 * 72 / 25.4);
  const Margins margins = cardGeometry(job).margins;
  EXPECT_NEAR(margins.left, 1, kPoint);
  EXPECT_NEAR(margins.bottom, 2, kPoint);
  EXPECT_NEAR(margins.right, 3, kPoint);
  EXPECT_NEAR(margins.top, 4, kPoint);
  EXPECT_EQ(job.marked("PageSize"), "Custom.54x85.6mm");
}

TEST(CardGeometry, TurnsTheImageableAreaIntoMargins) {
  const JobOptions job =
      jobOf("*PPD-Adobe: \"4.3\"\n" + option("PageSize", {{"Badge", ""}}) +
            "*ImageableArea Badge: \"5 10 185 87\"\n*PaperDimension Badge: \"200 100\"\n");
  expectSize(job, 200, 100);
  EXPECT_EQ(cardGeometry(job).margins, (Margins{.left = 5, .top = 13, .right = 15, .bottom = 10}));
}

TEST(CardGeometry, IsWithoutASizeWhereThePPDTellsNone) {
  const JobOptions job = jobOf("*PPD-Adobe: \"4.3\"\n" + option("Plain", {{"One", ""}}));
  const CardGeometry card = cardGeometry(job);
  EXPECT_FALSE(card.hasSize());
  EXPECT_EQ(card.width, 0);
  EXPECT_EQ(card.height, 0);
}

TEST(CardGeometry, IsWithoutASizeWhereOneLengthIsNone) {
  for (const char* size : {"0 100", "200 0", "-1 100", "200 -1"}) {
    const JobOptions job = jobOf("*PPD-Adobe: \"4.3\"\n" + option("PageSize", {{"Badge", ""}}) +
                                 "*PaperDimension Badge: \"" + size + "\"\n");
    EXPECT_EQ(cardGeometry(job).width, 0) << size;
    EXPECT_EQ(cardGeometry(job).height, 0) << size;
  }
}

TEST(CardGeometry, HasNoMarginsWhereTheImageableAreaIsNone) {
  for (const char* area : {"185 10 5 87", "5 87 185 10", "5 10 5 87", "5 10 185 10"}) {
    const JobOptions job =
        jobOf("*PPD-Adobe: \"4.3\"\n" + option("PageSize", {{"Badge", ""}}) +
              "*ImageableArea Badge: \"" + area + "\"\n*PaperDimension Badge: \"200 100\"\n");
    expectSize(job, 200, 100);
    EXPECT_EQ(cardGeometry(job).margins, Margins()) << area;
  }
}

TEST(CardGeometry, TakesTheFirstSizeWithoutAMarkOrADefault) {
  const JobOptions job = jobOf(
      "*PPD-Adobe: \"4.3\"\n*OpenUI *PageSize: PickOne\n*PageSize Small: \"\"\n"
      "*PageSize Large: \"\"\n*CloseUI: *PageSize\n*PaperDimension Small: \"90 50\"\n"
      "*PaperDimension Large: \"180 100\"\n");
  ASSERT_EQ(job.marked("PageSize"), std::nullopt);
  expectSize(job, 90, 50);
}

TEST(CardGeometry, ReadsTheResolutionOffTheMarkedChoice) {
  JobOptions job =
      jobWith("*DefaultResolution: 150dpi\n" +
              option("Resolution", {{"300dpi", ""},
                                    {"300x600dpi", ""},
                                    {"Best", "<</HWResolution[1200 600]>>setpagedevice"}}));
  expectResolution(job, 300, 300);
  job.mark("Resolution", "300x600dpi");
  expectResolution(job, 300, 600);
  job.mark("Resolution", "Best");
  expectResolution(job, 1200, 600);
}

TEST(CardGeometry, PassesOverCodeThatSetsNoWholeResolution) {
  for (const char* code :
       {"HWResolution [1200 600]", "/HWResolution 1200 600", "/HWResolution [1200]",
        "/HWResolution [a 600]", "/HWResolution [1200 0]", "/HWResolution [-1 600]",
        "/HWResolution [1200 600", "/HWResolution"}) {
    const JobOptions job =
        jobWith("*DefaultResolution: 150dpi\n" + option("Quality", {{"Best", code}}));
    expectResolution(job, 150, 150);
  }
}

TEST(CardGeometry, TakesTheResolutionThatAQualityStandsFor) {
  JobOptions job = jobWith(
      "*DefaultResolution: 300dpi\n" +
      option("cupsPrintQuality", {{"Normal", "<</cupsCompression 1>>setpagedevice"},
                                  {"High", "<</HWResolution [ 600 1200 ]>>setpagedevice"}}));
  expectResolution(job, 300, 300);
  job.mark("cupsPrintQuality", "High");
  expectResolution(job, 600, 1200);
}

TEST(CardGeometry, ReadsTheDefaultResolution) {
  expectResolution(jobWith("*DefaultResolution: 300x600dpi\n"), 300, 600);
  expectResolution(jobWith("*DefaultResolution: 203.2DPI\n"), 203.2, 203.2);
}

TEST(CardGeometry, SaysThatAResolutionIsOnlyAGuess) {
  for (const char* lines : {"", "*DefaultResolution: fine\n", "*DefaultResolution: 0dpi\n",
                            "*DefaultResolution: 300\n", "*DefaultResolution: 300x\n",
                            "*DefaultResolution: 300xdpi\n", "*DefaultResolution: x300dpi\n",
                            "*DefaultResolution: -300dpi\n", "*DefaultResolution: 300dpi2\n"}) {
    const CardGeometry card = cardGeometry(jobWith(lines));
    EXPECT_FALSE(card.hasResolution) << lines;
    EXPECT_EQ(card.dotsPerInchAcross, 300) << lines;
    EXPECT_EQ(card.dotsPerInchDown, 300) << lines;
  }
}

TEST(CardGeometry, CountsFromTheBottomWhereThePPDSaysSo) {
  EXPECT_TRUE(cardGeometry(jobWith("*cardpanelsOrigin: BottomLeft\n")).countsFromBottom);
  EXPECT_TRUE(cardGeometry(jobWith("*cardpanelsOrigin: \"BottomLeft\"\n")).countsFromBottom);
  EXPECT_FALSE(cardGeometry(jobWith("*cardpanelsOrigin: TopLeft\n")).countsFromBottom);
}

}  // namespace
}  // namespace cardpanels::host
