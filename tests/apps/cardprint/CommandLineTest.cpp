// What cardprint does without a display and without a print server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cwchar>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/Process.h"
#include "tests/support/ScopedLocale.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
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
  expectError(withSample("card-laminate", "-o cardLaminate"), "cardLaminate=true");
}

TEST(Cardprint, TakesWhatLibcupsKnowsOfJobsWithoutAServer) {
  EXPECT_THAT(withSample("card-laminate", "-n 2 -o 'cardLaminate=Front fit-to-page'").output,
              EndsWith("\n-o cardLaminate=Front -o copies=2 -o fit-to-page=true\n"));
}

TEST(Cardprint, NamesAnArgumentThatIsNoOption) {
  expectError(withSample("card-laminate", "-o =Front"), "-o =Front: This is not KEY=VALUE.");
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

TEST(Cardprint, NamesOptionsThatDoNotGoTogether) {
  for (const auto& [arguments, reason] :
       std::map<std::string, std::string>{{"--each /dev/null", "--no-dialog"},
                                          {"--list /dev/null", "--no-dialog"},
                                          {"--no-dialog --list /dev/null /dev/zero", "/dev/zero"},
                                          {"--no-dialog --list ''", "--list"},
                                          {"--no-dialog --ppd a.ppd --list /dev/null", "/dev/null"},
                                          {"--no-dialog --stop /dev/null", "--stop"},
                                          {"--no-dialog - -", "Standard input"}}) {
    expectError(cardprint(arguments), reason);
  }
}

TEST(Cardprint, TellsHowToGetHelp) {
  const auto finished = cardprint("--surprise");
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, AllOf(HasSubstr("--surprise"), HasSubstr("cardprint --help")));
}

constexpr std::array kOptions{"--ppd",       "-d",       "-o",       "-n",     "-t",     "-H",
                              "-q",          "-P",       "-h",       "-U",     "-E",     "-s",
                              "--no-dialog", "--strict", "--each",   "--list", "--stop", "--wait",
                              "--trace",     "--help",   "--version"};

TEST(Cardprint, HelpNamesEveryOption) {
  const auto finished = cardprint("--help");
  EXPECT_EQ(finished.status, 0);
  for (const char* option : kOptions) {
    EXPECT_THAT(finished.output, HasSubstr("\n  " + std::string(option)));
  }
}

TEST(Cardprint, HelpHasAnEmptyLineBetweenParagraphs) {
  const auto finished = cardprint("--help");
  EXPECT_THAT(finished.output, HasSubstr("prints a picture later:\n\n  eval"));
  EXPECT_THAT(finished.output, HasSubstr("picture.png\"\n\nWith --each"));
}

TEST(Cardprint, TellsItsVersion) {
  EXPECT_THAT(cardprint("--version").output, testing::MatchesRegex("cardprint [0-9.]+\n"));
}

/// The help in `language`, a line an element.
std::vector<std::string> helpLines(const std::string& language) {
  const auto finished = test::runCommand("LANGUAGE= LC_ALL=" + language +
                                         ".UTF-8 " CARDPANELS_BUILD_DIR "/bin/cardprint --help");
  EXPECT_EQ(finished.status, 0);
  std::vector<std::string> lines;
  std::istringstream text(finished.output);
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

/// How many columns of a terminal `line` takes, in the program's locale.
int columns(const std::string& line) {
  std::wstring wide(line.size(), L'\0');
  wide.resize(std::mbstowcs(wide.data(), line.c_str(), wide.size()));
  return wcswidth(wide.c_str(), wide.size());
}

TEST(Cardprint, HelpIsInTheUsersLanguageWithinEightyColumns) {
  const test::ScopedLocale locale(LC_ALL, "C.UTF-8");
  const auto english = helpLines("en_US");
  for (const std::string language : {"en_US", "de_DE", "fr_FR", "ja_JP"}) {
    const auto lines = helpLines(language);
    EXPECT_EQ(lines == english, language == "en_US") << language;
    for (const std::string& line : lines) {
      EXPECT_LE(columns(line), 80) << line;
      EXPECT_GE(columns(line), 0) << line;
    }
    for (const char* option : kOptions) {
      EXPECT_THAT(lines, Contains(StartsWith("  " + std::string(option)))) << language;
    }
  }
}

TEST(Cardprint, UsageErrorsAreInTheUsersLanguage) {
  const auto inGerman = [](const std::string& arguments) {
    return test::runCommand("LANGUAGE= LC_ALL=de_DE.UTF-8 " CARDPANELS_BUILD_DIR "/bin/cardprint " +
                            arguments);
  };
  for (const auto& [arguments, message] : std::map<std::string, std::string>{
           {"--surprise", "Es gibt keine Option --surprise."},
           {"-x", "Es gibt keine Option -x."},
           {"--ppd", "Die Option --ppd braucht einen Wert."},
           {"-d", "Die Option -d braucht einen Wert."},
           {"--trace=1", "Die Option --trace=1 nimmt keinen Wert."}}) {
    const auto finished = inGerman(arguments);
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.errors, "cardprint: " + message + "\n„cardprint --help“ zeigt die Hilfe.\n");
  }
}

TEST(Cardprint, ErrorsAboutQueuesAreInTheUsersLanguage) {
  const test::TemporaryFolder folder;
  const auto finished =
      test::runCommand("env -u DISPLAY LANGUAGE= LC_ALL=de_DE.UTF-8 CUPS_SERVER=" +
                       (folder.path() / "cups.sock").string() +
                       " " CARDPANELS_BUILD_DIR "/bin/cardprint -d card --no-dialog /dev/null");
  EXPECT_EQ(finished.status, 2);
  EXPECT_THAT(finished.errors, HasSubstr("Druckserver"));
}

/// A PPD whose nick name is a control sequence and no UTF-8. The title of an option and of a choice
/// are one too, as hex: these libcups lets pass.
std::string hostilePPD(const test::TemporaryFolder& folder) {
  std::string text = test::testPPD(
      {{"cardLaminate", "Lam<1B>[31m", {{"None", "None"}, {"Red", "R<1B>[31m"}}, {}}});
  text.replace(text.find("*NickName: \"Test"), 16, "*NickName: \"\x1b[31m\xFF");
  return folder.write("card.ppd", text);
}

TEST(Cardprint, PrintsWhatAPPDSaysWithoutControlCharacters) {
  const test::TemporaryFolder folder;
  const std::string ppd = hostilePPD(folder);
  const auto finished = cardprint("--ppd " + ppd + " --no-dialog -o cardLaminate=Red");
  EXPECT_EQ(finished.status, 0);
  EXPECT_THAT(finished.output,
              AllOf(HasSubstr("Lam\\x1b[31m: R\\x1b[31m\n"), Not(HasSubstr("\x1b"))));
  const auto refused = cardprint("--ppd " + ppd + " --no-dialog -o cardLaminate=Gold");
  expectError(refused, "“Lam\\x1b[31m”");
  EXPECT_THAT(refused.errors, Not(HasSubstr("\x1b")));
}

TEST(Cardprint, PrintsWhatTheCommandLineSaysWithoutControlCharacters) {
  for (const char* arguments :
       {"$'--a\\x1b'", "$'-\\x1b'", "--ppd $'/a\\x1b'", "-o $'=\\x1b'", "$'/a\\x1b'"}) {
    const auto finished = test::runCommand("bash -c \"CUPS_SERVER=/nowhere " CARDPANELS_BUILD_DIR
                                           "/bin/cardprint --no-dialog " +
                                           std::string(arguments) + "\"");
    EXPECT_EQ(finished.status, 2) << arguments;
    EXPECT_THAT(finished.errors, AllOf(HasSubstr("\\x1b"), Not(HasSubstr("\x1b")))) << arguments;
  }
}

TEST(Cardprint, SaysWhenStandardOutputCannotBeWritten) {
  for (const char* arguments : {"--help >/dev/full", "--version >&-"}) {
    const auto finished = cardprint(arguments);
    EXPECT_EQ(finished.status, 2) << arguments;
    EXPECT_THAT(finished.errors, StartsWith("cardprint: Standard output cannot be written: "));
  }
  EXPECT_EQ(withSample("card-laminate", ">/dev/full").status, 2);
  EXPECT_EQ(withSample("card-laminate", ">&-").status, 2);
}

TEST(Cardprint, WritesTheTraceLogToStandardErrorOnRequest) {
  EXPECT_THAT(withSample("card-laminate", "--trace").errors,
              AllOf(HasSubstr("cardprint["), HasSubstr("panelName")));
}

}  // namespace
}  // namespace cardpanels
