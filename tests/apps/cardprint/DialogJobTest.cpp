// What a person sets in cardprint's dialog, on its way to a real print server and back.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "tests/support/BuiltFiles.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

using Options = std::map<std::string, std::string>;

/// Starts cardprint with `arguments` and does what `script` says in its dialog.
test::Finished useDialog(const std::string& arguments, const std::string& script) {
  return test::runCommand("/usr/bin/python3 -B " CARDPANELS_SOURCE_DIR
                          "/tests/apps/cardprint/use_dialog.py " CARDPANELS_BUILD_DIR
                          "/bin/cardprint " +
                              arguments,
                          script);
}

void expectPrinted(const test::Finished& finished, int job) {
  EXPECT_EQ(finished.status, 0) << finished.output << finished.errors;
  EXPECT_THAT(finished.errors, Not(HasSubstr("cardprint: ")));
  EXPECT_THAT(finished.output,
              EndsWith("\nrequest id is card-" + std::to_string(job) + " (1 file(s))\n"));
}

/// Chosen on all five panels, with two areas for resin and one to peel off.
constexpr const char* kChoosing = R"(panel Ribbon and Resin
choose Front Resin = Defined Areas
type Front Resin Area 1, X = 0.1234567890123456in
type Front Resin Area 1, Y = .50cm
type Front Resin Area 1, width = 007mm
type Front Resin Area 1, height = 40px
page Front resin areas = Exclude
type Front No-Resin Area 3, X = 1
type Front No-Resin Area 3, Y = 1.5in
type Front No-Resin Area 3, width = 2.0in
type Front No-Resin Area 3, height = 0.25in
choose Back Ribbon = Color and UV (YMCF)
panel Ultraviolet
choose Back UV = Text Only
panel Peel-Off
choose Front Peel-Off = Defined Areas
type Front Peel-Off Area 2, X = 1in
type Front Peel-Off Area 2, Y = 1.25in
type Front Peel-Off Area 2, width = 0.50in
type Front Peel-Off Area 2, height = 12.70mm
panel Thermal Laminate
choose Thermal Laminate = Back Side
panel Card Handling
choose Front Rotation = 180 Degrees
untold
)";

/// What `kChoosing` chooses.
const Options kChosen{
    {"frontResin", "DefinedAreas"},
    {"frontResinInclude1", "Custom.0.1234567890123456in .50cm 007mm 40px"},
    {"frontResinExclude3", "Custom.1px 1.5in 2.0in 0.25in"},
    {"backRibbon", "YMCF"},
    {"backUV", "Text"},
    {"frontPO", "DefinedAreas"},
    {"CustomfrontPeelOff2", "Custom.1in 1.25in 0.50in 12.70mm"},
    {"cardLaminate", "Back"},
    {"frontRotation", "Rotate180"},
};

/// The dialog of a printer where all of `kChosen` is chosen.
constexpr const char* kReading = R"(panel Peel-Off
see Front Peel-Off = Defined Areas
see Back Peel-Off = No Peel-Off
read Front Peel-Off Area 2, X = 1in
read Front Peel-Off Area 2, Y = 1.25in
read Front Peel-Off Area 2, width = 0.50in
read Front Peel-Off Area 2, height = 12.70mm
read Front Peel-Off Area 1, X =
panel Ribbon and Resin
see Front Resin = Defined Areas
see Back Ribbon = Color and UV (YMCF)
read Front Resin Area 1, X = 0.1234567890123456in
read Front Resin Area 1, Y = .50cm
read Front Resin Area 1, width = 007mm
read Front Resin Area 1, height = 40px
read Front Resin Area 2, X =
page Front resin areas = Exclude
read Front No-Resin Area 3, X = 1px
read Front No-Resin Area 3, Y = 1.5in
read Front No-Resin Area 3, width = 2.0in
read Front No-Resin Area 3, height = 0.25in
read Front No-Resin Area 1, height =
panel Ultraviolet
see Back UV = Text Only
panel Thermal Laminate
see Thermal Laminate = Back Side
panel Card Handling
see Front Rotation = 180 Degrees
untold
)";

class DialogJob : public testing::Test {
 protected:
  DialogJob() {
    server_.addQueue("card", test::fileContent(test::duplexPPD()));
    server_.enable("card");
  }

  /// The card options of a job.
  Options cardOptions(int job) const {
    Options options = server_.job(job);
    std::erase_if(options, [](const auto& option) {
      const std::string& key = option.first;
      return !key.starts_with("front") && !key.starts_with("back") && !key.starts_with("Custom") &&
             !key.starts_with("card") && !key.ends_with("CardFlip");
    });
    return options;
  }

  void saveChosenAs(const std::string& name) {
    std::string options;
    for (const auto& [key, value] : kChosen)
      options.append(key).append("=\"").append(value).append("\" ");
    server_.saveOptions(name, options);
  }

  static std::string savedAs(const std::string& name) {
    return test::runCommand("lpoptions -p " + name).output;
  }

  test::PrivatePrintServer server_;
  test::TemporaryFolder folder_;
  std::string picture_ = folder_.write("badge.txt", "Ada Lovelace\n");
};

TEST_F(DialogJob, CarriesExactlyWhatIsSetOnAllPanels) {
  expectPrinted(useDialog("-d card " + picture_, kChoosing + std::string("press Print\n")), 1);
  EXPECT_EQ(cardOptions(1), kChosen);
  EXPECT_EQ(server_.endedJob(1), "completed");
}

TEST_F(DialogJob, OfASavedInstanceCarriesTheSameAreasAgain) {
  saveChosenAs("card/badges");
  expectPrinted(useDialog("-d card/badges " + picture_, kReading + std::string("press Print\n")),
                1);
  EXPECT_EQ(cardOptions(1), kChosen);
}

TEST_F(DialogJob, OfASavedInstanceThatIsNotLookedAtCarriesTheSameAreas) {
  saveChosenAs("card/badges");
  expectPrinted(useDialog("-d card/badges " + picture_, "press Print\n"), 1);
  EXPECT_EQ(cardOptions(1), kChosen);
}

TEST_F(DialogJob, IsNotSentOnCancelAndTheSavedOptionsStay) {
  saveChosenAs("card/badges");
  const std::string before = savedAs("card/badges");
  const auto finished = useDialog("-d card/badges " + picture_, R"(panel Peel-Off
type Front Peel-Off Area 2, X = 3in
choose Front Peel-Off = Chip
panel Card Handling
choose Back Rotation = 180 Degrees
press Cancel
)");
  EXPECT_EQ(finished.status, 1) << finished.errors;
  EXPECT_EQ(finished.output, "");
  EXPECT_EQ(server_.jobCount(), 0);
  EXPECT_EQ(savedAs("card/badges"), before);
}

TEST_F(DialogJob, OfAPrinterForOneSideIsSentAtOnce) {
  server_.addQueue("single",
                   test::fileContent(CARDPANELS_SOURCE_DIR "/resources/ppd/card-single.ppd"));
  server_.enable("single");
  const auto finished = useDialog("-d single " + picture_, R"(panel Peel-Off
choose Front Peel-Off = Defined Areas
type Front Peel-Off Area 1, X = 1in
type Front Peel-Off Area 1, Y = 1in
type Front Peel-Off Area 1, width = 1in
type Front Peel-Off Area 1, height = 1in
untold
press Print
)");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_EQ(cardOptions(1), (Options{{"frontPO", "DefinedAreas"},
                                     {"CustomfrontPeelOff1", "Custom.1in 1in 1in 1in"}}));
}

TEST_F(DialogJob, OfAStoppedPrinterIsSentAfterThatWasTold) {
  expectPrinted(useDialog("-d card " + picture_, R"(panel Thermal Laminate
choose Thermal Laminate = Back Side
untold
run cupsdisable -r Cleaning card
told Printer stopped: Cleaning
run cupsenable card
untold
run cupsdisable -r Cleaning card
told Printer stopped: Cleaning
press Print
)"),
                1);
  EXPECT_EQ(cardOptions(1), (Options{{"cardLaminate", "Back"}}));
  server_.enable("card");
  EXPECT_EQ(server_.endedJob(1), "completed");
}

/// The queue gets another PPD while the dialog is open: one without both-sided laminate, and
/// without the areas.
TEST_F(DialogJob, IsNotSentWithWhatAnotherPPDDoesNotHave) {
  const std::string other = folder_.write(
      "other.ppd",
      test::testPPD({test::testOption("frontRotation", "Front Rotation", 2),
                     {"cardLaminate", "Laminate", {{"None", "None"}, {"Back", "Back Side"}}, {}},
                     {"frontUV", "Front Ultraviolet", {{"None", "None"}, {"Logo", "Logo"}}, {}}}));
  const auto finished =
      useDialog("-d card -o cardLaminate=Both -o frontResinInclude1='1in 1in 2in 2in' " + picture_,
                R"(panel Thermal Laminate
see Thermal Laminate = Both Sides
run lpadmin -p card -P )" +
                    other + R"(
press Print
told have changed meanwhile
told was left out
panel Thermal Laminate
see Laminate = None
choose Laminate = Back Side
press Print
)");
  EXPECT_EQ(finished.status, 0) << finished.output << finished.errors;
  EXPECT_THAT(finished.errors, HasSubstr("frontResinInclude1=Custom.1in 1in 2in 2in was left out"));
  EXPECT_EQ(server_.jobCount(), 1);
  EXPECT_EQ(cardOptions(1), (Options{{"cardLaminate", "Back"}}));
}

/// A printer that cannot laminate both sides where an area is peeled off.
std::string conflictingPPD() {
  return test::testPPD(
      {test::testOption("frontPO", "Front Peel-Off", 14, "Choice12"), test::laminateOption()},
      test::testAreaOption("CustomfrontPeelOff1") +
          "*UIConstraints: *cardLaminate Both *CustomCustomfrontPeelOff1 True\n"
          "*UIConstraints: *CustomCustomfrontPeelOff1 True *cardLaminate Both\n");
}

class ConflictWithAnArea : public testing::Test {
 protected:
  /// What the job gets when the person does what `script` says after laminating both sides was
  /// refused.
  std::string lastLine(const std::string& script) {
    const auto finished = useDialog("--ppd " + ppd_ + " -o CustomfrontPeelOff1='1in 1in 2in 1in'",
                                    R"(panel Thermal Laminate
try Card Laminate = Both Sides
told would remove “1in 1in 2in 1in”
see Card Laminate = None
)" + script);
    EXPECT_EQ(finished.status, 0) << finished.output << finished.errors;
    EXPECT_THAT(finished.errors, Not(HasSubstr("cardprint: ")));
    return finished.output.substr(finished.output.rfind('\n', finished.output.size() - 2) + 1);
  }

  test::TemporaryFolder folder_;
  std::string ppd_ = folder_.write("card.ppd", conflictingPPD());
};

TEST_F(ConflictWithAnArea, IsToldAndLeavesEverythingAsItWas) {
  EXPECT_EQ(lastLine(R"(press Close
untold
see Card Laminate = None
panel Peel-Off
read Front peel-off area 1, X = 1in
read Front peel-off area 1, height = 1in
press Print
)"),
            "-o 'CustomfrontPeelOff1=\"Custom.1in 1in 2in 1in\"'\n");
}

TEST_F(ConflictWithAnArea, IsResolvedWhenThePersonInsists) {
  EXPECT_EQ(lastLine(R"(press Change Anyway
see Card Laminate = Both Sides
panel Peel-Off
read Front peel-off area 1, X =
read Front peel-off area 1, height =
press Print
press Print Anyway
)"),
            "-o CustomfrontPeelOff1=Default -o cardLaminate=Both\n");
}

}  // namespace
}  // namespace cardpanels
