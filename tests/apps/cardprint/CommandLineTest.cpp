// What cardprint does without a display and without a print server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

const std::string kSamples = CARDPANELS_SOURCE_DIR "/resources/ppd/";

test::Finished cardprint(const std::string& arguments) {
  return test::runCommand("env -u DISPLAY -u WAYLAND_DISPLAY LC_ALL=C " CARDPANELS_BUILD_DIR
                          "/bin/cardprint " +
                          arguments);
}

test::Finished withSample(const std::string& sample, const std::string& arguments) {
  return cardprint("--ppd " + kSamples + sample + ".ppd --no-dialog " + arguments);
}

void expectError(const test::Finished& finished, const std::string& reason) {
  EXPECT_EQ(finished.status, 2);
  EXPECT_EQ(finished.output, "");
  EXPECT_THAT(finished.errors, AllOf(StartsWith("cardprint: "), HasSubstr(reason)));
}

TEST(Cardprint, PrintsTheSummaryAndTheOptionsOfTheJob) {
  const auto finished = withSample("card-laminate", "-o cardLaminate=Both");
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.errors, "");
  EXPECT_EQ(finished.output,
            "Thermal Laminate\n    Thermal Laminate: Both Sides\n-o cardLaminate=Both\n");
}

TEST(Cardprint, PrintsAnEmptyLineForAJobWithoutOptions) {
  EXPECT_EQ(withSample("card-laminate", "").output,
            "Thermal Laminate\n    Thermal Laminate: No Laminate\n\n");
}

TEST(Cardprint, QuotesAnAreaForTheShellAndForCUPS) {
  EXPECT_THAT(withSample("card-duplex", "-o frontResinInclude1='1in 1in 2in 2in'").output,
              EndsWith("\n-o 'frontResinInclude1=\"Custom.1in 1in 2in 2in\"'\n"));
}

TEST(Cardprint, TakesItsOwnLastLineAsOptions) {
  const std::string once =
      withSample("card-duplex", "-o frontResinInclude1='1in 1in 2in 2in'").output;
  const std::string lastLine = once.substr(once.rfind('\n', once.size() - 2) + 1);
  EXPECT_EQ(withSample("card-duplex", lastLine).output, once);
}

TEST(Cardprint, NamesBothOfTwoOptionsThatExcludeEachOtherInEitherOrder) {
  for (const char* arguments :
       {"-o cardLaminate=Both -o PageSize=CR79", "-o PageSize=CR79 -o cardLaminate=Both",
        "-o 'PageSize=CR79 cardLaminate=Both'"}) {
    const auto finished = withSample("card-laminate", arguments);
    expectError(finished, "“Thermal Laminate”");
    expectError(finished, "“Card Size”");
  }
}

TEST(Cardprint, TakesOptionsThatGoTogetherInEitherOrder) {
  for (const char* arguments :
       {"-o frontUV=ImageCopy -o frontRibbon=YMCF", "-o frontRibbon=YMCF -o frontUV=ImageCopy"}) {
    const auto finished = withSample("card-duplex", arguments);
    EXPECT_EQ(finished.status, 0);
    EXPECT_EQ(finished.errors, "");
    EXPECT_THAT(finished.output, EndsWith("\n-o frontRibbon=YMCF -o frontUV=ImageCopy\n"));
  }
}

TEST(Cardprint, SeesWhatAGivenMediaExcludes) {
  expectError(withSample("card-laminate", "-o media=CR79 -o cardLaminate=Both"), "“Card Size”");
  expectError(withSample("card-laminate", "-o media=gold"), "-o media=gold: ");
}

TEST(Cardprint, NamesWhatIsNoMeasurementOfAnArea) {
  for (const std::string wrong : {"abc", "1,5cm"}) {
    const auto finished =
        withSample("card-duplex", "-o frontResinInclude1='" + wrong + " 1in 1in 1in'");
    expectError(finished, "frontResinInclude1=");
    expectError(finished, "“" + wrong + "” is no measurement");
  }
  expectError(withSample("card-duplex", "-o CustombackPeelOff3='1in 1in 1in'"),
              "four measurements");
}

constexpr const char* kOffTheCard =
    "-o frontResin=DefinedAreas -o frontResinInclude1='9cm 1in 2in 1in' ";

TEST(Cardprint, TellsAnAreaThatCannotBeRightAndPrints) {
  const auto finished = withSample("card-duplex", kOffTheCard);
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.errors,
              AllOf(StartsWith("cardprint: “Front "), HasSubstr("outside the card")));
  EXPECT_THAT(finished.output, EndsWith("-o 'frontResinInclude1=\"Custom.9cm 1in 2in 1in\"'\n"));
}

TEST(Cardprint, PrintsNoSuchAreaWhenItIsStrict) {
  expectError(withSample("card-duplex", std::string("--strict ") + kOffTheCard),
              "outside the card");
  const auto right = withSample(
      "card-duplex", "--strict -o frontResin=DefinedAreas -o frontResinInclude1='1cm 1cm 1cm 1cm'");
  EXPECT_EQ(right.status, 0);
  EXPECT_EQ(right.errors, "");
}

TEST(Cardprint, NamesAnUnknownKey) {
  expectError(withSample("card-laminate", "-o nose=Big"), "nose");
}

TEST(Cardprint, NamesAnUnknownChoice) {
  expectError(withSample("card-laminate", "-o cardLaminate=Gold"), "cardLaminate=Gold");
}

TEST(Cardprint, NamesAnArgumentThatIsNoOption) {
  expectError(withSample("card-laminate", "-o cardLaminate"), "-o cardLaminate: not KEY=VALUE");
}

TEST(Cardprint, NamesAMissingPPD) {
  expectError(cardprint("--ppd /no/such.ppd --no-dialog"), "/no/such.ppd");
}

TEST(Cardprint, NamesAFileThatCannotBeRead) {
  expectError(cardprint("-d card --no-dialog /no/such.pdf"), "/no/such.pdf");
  expectError(cardprint("-d card --no-dialog /tmp"), "/tmp: Is a directory");
}

TEST(Cardprint, NamesAPrintServerThatIsNotThere) {
  const test::TemporaryFolder folder;
  const std::string socket = (folder.path() / "cups.sock").string();
  const auto finished =
      test::runCommand("env -u DISPLAY CUPS_SERVER=" + socket +
                       " " CARDPANELS_BUILD_DIR "/bin/cardprint -d card --no-dialog /dev/null");
  expectError(finished, "card");
}

TEST(Cardprint, NeedsADisplayForTheDialog) {
  expectError(cardprint("--ppd " + kSamples + "card-laminate.ppd"), "--no-dialog");
}

TEST(Cardprint, TellsHowToGetHelp) {
  const auto finished = cardprint("--surprise");
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, AllOf(HasSubstr("--surprise"), HasSubstr("cardprint --help")));
}

TEST(Cardprint, HelpNamesEveryOption) {
  const auto finished = cardprint("--help");
  EXPECT_EQ(finished.status, 0);
  for (const char* option :
       {"--ppd", "-d", "-o", "--no-dialog", "--strict", "--trace", "--help", "--version"}) {
    EXPECT_THAT(finished.output, HasSubstr("\n  " + std::string(option)));
  }
}

TEST(Cardprint, TellsItsVersion) {
  EXPECT_THAT(cardprint("--version").output, testing::MatchesRegex("cardprint [0-9.]+\n"));
}

TEST(Cardprint, WritesTheTraceLogToStandardErrorOnRequest) {
  EXPECT_THAT(withSample("card-laminate", "--trace").errors,
              AllOf(HasSubstr("cardprint["), HasSubstr("panelName")));
}

}  // namespace
}  // namespace cardpanels
