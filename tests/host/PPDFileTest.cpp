#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <thread>

#include "host/Error.h"
#include "host/PPDFile.h"
#include "tests/support/Process.h"
#include "tests/support/ScopedLocale.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::HasSubstr;
using testing::MatchesRegex;
using testing::StartsWith;

/// Gives up root's right to read everything, where there is one.
class AsNobody {
 public:
  AsNobody() : user_(geteuid()) {
    if (user_ == 0) dropped_ = seteuid(65534) == 0;
  }
  ~AsNobody() {
    if (dropped_ && seteuid(user_) != 0) std::abort();
  }

 private:
  uid_t user_;
  bool dropped_ = false;
};

class OpenPPD : public testing::Test {
 protected:
  std::string ppd() const { return test::testPPD({test::laminateOption()}); }

  /// The PPD with `insertion` before its options.
  std::string with(const std::string& insertion) const {
    return test::testPPD({test::laminateOption()}, insertion);
  }

  std::string write(const std::string& content) const { return folder.write("card.ppd", content); }

  /// What is told of a file that holds `content`, without the file's path.
  std::string errorOf(const std::string& content) const { return errorAt(write(content)); }

  std::string errorAt(const std::string& path) const {
    try {
      openPPD(path);
    } catch (const Error& error) {
      const std::string text = error.what();
      EXPECT_THAT(text, StartsWith(path + ":"));
      return text.substr(std::min(path.size() + 1, text.size()));
    }
    return "opened";
  }

  std::string compressed() const {
    const std::string path = write(ppd());
    EXPECT_EQ(test::runCommand("gzip -n " + path).status, 0);
    return path + ".gz";
  }

  test::TemporaryFolder folder;
};

TEST_F(OpenPPD, APlainFileOpens) {
  const PPDFile file = openPPD(write(ppd()));
  EXPECT_STREQ(ppdFindOption(file.get(), "cardLaminate")->text, "Card Laminate");
}

TEST_F(OpenPPD, AGzipFileOpens) {
  EXPECT_NE(ppdFindOption(openPPD(compressed()).get(), "cardLaminate"), nullptr);
}

TEST_F(OpenPPD, LineEndsOfEveryKindAreRead) {
  std::string windows;
  std::string mac;
  for (const char c : ppd()) {
    windows += c == '\n' ? "\r\n" : std::string(1, c);
    mac += c == '\n' ? '\r' : c;
  }
  EXPECT_EQ(errorOf(windows), "opened");
  EXPECT_EQ(errorOf(mac), "opened");
}

TEST_F(OpenPPD, AMissingFileIsToldByName) {
  EXPECT_EQ(errorAt((folder.path() / "none.ppd").string()), " No such file or directory");
}

TEST_F(OpenPPD, ADirectoryIsTold) { EXPECT_EQ(errorAt(folder.path().string()), " Is a directory"); }

TEST_F(OpenPPD, ADeviceIsTold) { EXPECT_EQ(errorAt("/dev/null"), " This is not a regular file."); }

TEST_F(OpenPPD, AFileThatCannotBeReadIsTold) {
  EXPECT_EQ(errorAt("/proc/self/mem"), " Input/output error");
}

TEST_F(OpenPPD, AFileWithoutPermissionIsTold) {
  const std::string path = write(ppd());
  ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(path.c_str(), 0), 0);
  const AsNobody nobody;
  EXPECT_EQ(errorAt(path), " Permission denied");
}

TEST_F(OpenPPD, AnotherNameStandsForThePath) {
  try {
    openPPD(write("no PPD\n"), "queue card");
    FAIL() << "opened";
  } catch (const Error& error) {
    EXPECT_THAT(error.what(), StartsWith("queue card:1: "));
  }
}

TEST_F(OpenPPD, AnEmptyFileIsTold) {
  EXPECT_EQ(errorOf(""), " The file is empty.");
  EXPECT_EQ(errorOf("\n \n"), " The file is empty.");
}

TEST_F(OpenPPD, AFileThatIsNoPPDIsTold) {
  EXPECT_THAT(errorOf("%!PS-Adobe-3.0\n"), StartsWith("1: This is not a PPD file"));
}

TEST_F(OpenPPD, APPDOfAnotherVersionIsToldWithLibcupsReason) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"3.0\"\n"), "1: Missing PPD-Adobe-4.x header");
}

TEST_F(OpenPPD, UTF16IsTold) {
  EXPECT_THAT(errorOf(std::string("\xFF\xFE*\0P\0", 6)), StartsWith("1: The file is in UTF-16"));
  EXPECT_THAT(errorOf(std::string("\xFE\xFF\0*\0P", 6)), StartsWith("1: The file is in UTF-16"));
}

TEST_F(OpenPPD, AByteOrderMarkIsTold) {
  EXPECT_THAT(errorOf("\xEF\xBB\xBF" + ppd()), StartsWith("1: The file starts with a byte order"));
}

TEST_F(OpenPPD, AZeroByteIsToldWithItsLine) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n*NickName: \"A" + std::string(1, '\0') + "B\"\n"),
            "2: There is a zero byte in this line.");
}

TEST_F(OpenPPD, AFileCutInsideAQuotedValueIsToldWithTheLineWhereItStarts) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n*JobPatchFile 1: \"\n10 20\n"),
            "2: The quoted value that starts here does not end.");
}

TEST_F(OpenPPD, AFileCutInsideAnOptionIsTold) {
  const std::string whole = ppd();
  const std::string cut = whole.substr(0, whole.rfind("*CloseUI"));
  EXPECT_THAT(errorOf(cut), MatchesRegex("[0-9]+: \\*OpenUI \\*cardLaminate is never closed.*"));
}

TEST_F(OpenPPD, AFileCutInsideAJCLOptionIsTold) {
  EXPECT_THAT(errorOf(ppd() + "*JCLOpenUI *JCLFlip/Flip: PickOne\n*JCLFlip On/On: \"\"\n"),
              HasSubstr("*JCLOpenUI *JCLFlip is never closed"));
}

TEST_F(OpenPPD, AFileCutAfterAnyLineOfAnOptionIsTold) {
  std::string lines = "*OpenUI *X/X: PickOne\n";
  for (const char* each :
       {"*OrderDependency: 10 AnySetup *X\n", "*DefaultX: A\n", "*X A/A: \"\"\n"}) {
    EXPECT_THAT(errorOf(ppd() + (lines += each)), HasSubstr("*OpenUI *X is never closed"));
  }
  EXPECT_EQ(errorOf(ppd() + lines + "*CloseUI: *X\n"), "opened");
}

TEST_F(OpenPPD, AFileCutInsideAGroupIsTold) {
  EXPECT_THAT(errorOf(ppd() + "*OpenGroup: Card/Card\n"), HasSubstr("Card/Card is never closed"));
}

TEST_F(OpenPPD, AFileCutInTheMiddleOfALineIsTold) {
  EXPECT_THAT(errorOf(ppd() + "*DefaultResolution: 30"),
              MatchesRegex("[0-9]+: The file ends inside this line."));
  for (const char* begun : {"*D", "*Def"}) {
    EXPECT_THAT(errorOf(ppd() + begun), MatchesRegex("[0-9]+: The file ends inside this line."));
  }
  const std::string whole = ppd();
  EXPECT_THAT(errorOf(whole.substr(0, whole.size() - 3)),
              MatchesRegex("[0-9]+: The file ends inside this line."));
}

TEST_F(OpenPPD, ACompleteLastLineNeedsNoLineEnd) {
  const std::string whole = ppd();
  EXPECT_EQ(errorOf(whole.substr(0, whole.size() - 1)), "opened");
  EXPECT_EQ(errorOf(whole + "*% end"), "opened");
}

TEST_F(OpenPPD, AnOptionThatIsForgottenToCloseBeforeOtherLinesOpens) {
  EXPECT_EQ(errorOf(ppd() + "*OpenUI *X/X: PickOne\n*X A/A: \"\"\n*UIConstraints: *X *frontUV\n"),
            "opened");
}

TEST_F(OpenPPD, ACompressedFileThatIsCutOffIsTold) {
  const std::string bytes = test::fileContent(compressed());
  for (const std::size_t size : {std::size_t{60}, std::size_t{400}, bytes.size() - 4}) {
    EXPECT_EQ(errorAt(folder.write("cut.ppd.gz", bytes.substr(0, size))),
              " The compressed file is damaged or cut off.")
        << size;
  }
}

TEST_F(OpenPPD, ADamagedCompressedFileIsTold) {
  const std::string path = compressed();
  std::string bytes = test::fileContent(path);
  for (std::size_t i = 40; i < 60; ++i) bytes[i] = static_cast<char>(~bytes[i]);
  EXPECT_EQ(errorAt(folder.write("card.ppd.gz", bytes)),
            " The compressed file is damaged or cut off.");
}

TEST_F(OpenPPD, ALineOf300KilobytesIsToldWithItsLine) {
  EXPECT_THAT(errorOf("*PPD-Adobe: \"4.3\"\n*NickName: \"" + std::string(300'000, 'x') + "\"\n"),
              StartsWith("2: Line longer than the maximum allowed"));
}

TEST_F(OpenPPD, WhatLibcupsCannotReadIsToldWithItsLineAndReason) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n*NickName: \"A\"\nno asterisk\n"),
            "3: Missing asterisk in column 1");
}

TEST_F(OpenPPD, AKeywordThatIsNotASCIIIsTold) {
  EXPECT_THAT(errorOf(with("*OpenUI *frontÜV/UV: PickOne\n*CloseUI: *frontÜV\n")),
              MatchesRegex("[0-9]+: Illegal option keyword string"));
}

TEST_F(OpenPPD, AChoiceKeywordOfMoreThan40BytesIsTold) {
  EXPECT_THAT(errorOf(with("*OpenUI *X/X: PickOne\n*X " + std::string(41, 'a') +
                           "/A: \"\"\n*CloseUI: *X\n")),
              MatchesRegex("[0-9]+: Illegal option keyword string"));
}

TEST_F(OpenPPD, ATextThatIsNotUTF8IsToldWithItsOptionAndLine) {
  EXPECT_THAT(errorOf(with("*OpenUI *X/Gr\xF6\xDF"
                           "e: PickOne\n*X A/A: \"\"\n*CloseUI: *X\n")),
              MatchesRegex("[0-9]+: The text of \\*OpenUI \\*X is not UTF-8."));
  EXPECT_THAT(errorOf(with("*OpenUI *X/X: PickOne\n*X A/<F6>: \"\"\n*CloseUI: *X\n")),
              MatchesRegex("[0-9]+: The text of \\*X A is not UTF-8."));
}

TEST_F(OpenPPD, ATextInHexadecimalDigitsIsReadToItsLastByte) {
  EXPECT_EQ(errorOf(with("*OpenUI *X/X: PickOne\n*X A/<C380>: \"\"\n*CloseUI: *X\n")), "opened");
}

TEST_F(OpenPPD, ATranslationThatIsNotUTF8IsToldInEveryLanguage) {
  EXPECT_THAT(errorOf(with("*de.Translation cardLaminate/L\xE4mpchen: \"\"\n")),
              HasSubstr("The text of *de.Translation cardLaminate is not UTF-8."));
}

TEST_F(OpenPPD, UTF8TextsWithoutLanguageEncodingAreTold) {
  std::string content = with("*OpenUI *X/Größe: PickOne\n*X A/A: \"\"\n*CloseUI: *X\n");
  content.replace(content.find("*LanguageEncoding: UTF-8"), 24, "*% nothing");
  EXPECT_THAT(errorOf(content), HasSubstr("no *LanguageEncoding: UTF-8 stands before it."));
}

TEST_F(OpenPPD, TextsInTheEncodingThatTheFileNamesAreConverted) {
  std::string content = with(
      "*OpenUI *X/Gr\xF6\xDF"
      "e: PickOne\n*X A/A: \"\"\n*CloseUI: *X\n");
  content.replace(content.find("UTF-8"), 5, "ISOLatin1");
  const PPDFile file = openPPD(write(content));
  EXPECT_STREQ(ppdFindOption(file.get(), "X")->text, "Größe");
}

TEST_F(OpenPPD, ATextThatWouldBeCutInsideACharacterIsTold) {
  const std::string text = std::string(79, 'a') + "ö";
  EXPECT_THAT(errorOf(with("*OpenUI *X/" + text + ": PickOne\n*X A/A: \"\"\n*CloseUI: *X\n")),
              MatchesRegex("[0-9]+: The text of X is too long: it is cut inside a character."));
}

TEST_F(OpenPPD, ALongTextThatIsCutBetweenCharactersOpens) {
  const std::string text = std::string(90, 'a');
  EXPECT_EQ(errorOf(with("*OpenUI *X/" + text + ": PickOne\n*X A/A: \"\"\n*CloseUI: *X\n")),
            "opened");
}

TEST_F(OpenPPD, APPDWithoutOptionsIsTold) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n*NickName: \"A\"\n"), " The PPD has no options.");
}

TEST_F(OpenPPD, AnOptionWithoutChoicesIsToldWithItsLine) {
  EXPECT_THAT(errorOf(with("*OpenUI *X/X: PickOne\n*CloseUI: *X\n")),
              MatchesRegex("[0-9]+: The option X has no choices."));
}

TEST_F(OpenPPD, AnOptionThatStandsInTwoGroupsIsToldWithBothLines) {
  const std::string option = "*OpenUI *X/X: PickOne\n*X A/A: \"\"\n*CloseUI: *X\n";
  EXPECT_THAT(errorOf("*PPD-Adobe: \"4.3\"\n" + option + "*OpenGroup: Card/Card\n" + option +
                      "*CloseGroup: Card\n"),
              StartsWith("6: The option X stands in line 2 already."));
}

TEST_F(OpenPPD, OptionsThatDifferOnlyInCaseAreToldWithBothLines) {
  const std::string option = "*OpenUI *Gloss/Gloss: PickOne\n*Gloss A/A: \"\"\n*CloseUI: *Gloss\n";
  const std::string other = "*OpenUI *gloss/Gloss: PickOne\n*gloss A/A: \"\"\n*CloseUI: *gloss\n";
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n" + option + other),
            "5: The option gloss stands in line 2 already.");
}

TEST_F(OpenPPD, APageSizeThatStandsInAGroupTooIsToldWithBothLines) {
  EXPECT_THAT(errorOf(ppd() + "*OpenGroup: Card/Card\n*OpenUI *PageSize/S: PickOne\n"
                              "*PageSize A/A: \"\"\n*CloseUI: *PageSize\n*CloseGroup: Card\n"),
              MatchesRegex("[0-9]+: The option PageSize stands in line 16 already."));
}

// libcups makes the option of page sizes that stand outside one.
TEST_F(OpenPPD, APageSizeThatIsOpenedOnceAndThereTwiceIsTold) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n*PageSize A/A: \"\"\n*OpenGroup: Card/Card\n"
                    "*OpenUI *PageSize/S: PickOne\n*PageSize B/B: \"\"\n*CloseUI: *PageSize\n"
                    "*CloseGroup: Card\n"),
            "4: The option PageSize stands there twice.");
}

TEST_F(OpenPPD, AnOptionThatIsOpenedAgainInItsGroupOpens) {
  const std::string option = "*OpenUI *X/X: PickOne\n*X A/A: \"\"\n*CloseUI: *X\n";
  EXPECT_EQ(errorOf(ppd() + option + option), "opened");
  // libcups knows no subgroups: what stands in one stands in the group.
  EXPECT_EQ(errorOf(ppd() + "*OpenGroup: Card/Card\n" + option + "*OpenSubGroup: Front/Front\n" +
                    option + "*CloseSubGroup: Front\n*CloseGroup: Card\n"),
            "opened");
}

std::string optionsOf(int count, int choices) {
  std::string text = "*PPD-Adobe: \"4.3\"\n";
  for (int i = 0; i < count; ++i) {
    const std::string keyword = "o" + std::to_string(i);
    text += "*OpenUI *" + keyword + "/O: PickOne\n";
    for (int k = 0; k < choices; ++k) {
      text += "*" + keyword + " c" + std::to_string(k) + "/C: \"\"\n";
    }
    text += "*CloseUI: *" + keyword + "\n";
  }
  return text;
}

TEST_F(OpenPPD, FourThousandOptionsOpenAndOneMoreIsToldBeforeLibcupsReads) {
  EXPECT_EQ(errorOf(optionsOf(4000, 1)), "opened");
  EXPECT_EQ(errorOf(optionsOf(4001, 1)), "12002: The file has more than 4000 options.");
  const std::string refusedByLibcups = "*OpenUI *X/\x1b: PickOne\n*X A/A: \"\"\n*CloseUI: *X\n";
  EXPECT_THAT(errorOf(optionsOf(1, 1) + refusedByLibcups), HasSubstr("Illegal translation string"));
  EXPECT_EQ(errorOf(optionsOf(4001, 1) + refusedByLibcups),
            "12002: The file has more than 4000 options.");
}

TEST_F(OpenPPD, TwoThousandChoicesOpenAndOneMoreIsTold) {
  EXPECT_EQ(errorOf(optionsOf(1, 2000)), "opened");
  EXPECT_EQ(errorOf(optionsOf(1, 2001)), "2003: The option o0 has more than 2000 choices.");
}

TEST_F(OpenPPD, AnErrorIsOneLineOfUTF8WhateverTheFileSays) {
  EXPECT_EQ(errorOf("*PPD-Adobe: \"4.3\"\n*OpenUI *X\x1b[31m\xFF: PickOne\n"),
            "2: *OpenUI *X\\x1b[31m\\xff is never closed; the file seems to be cut off.");
  const std::string path = folder.write("a\x1b[2J\n.ppd", "no PPD\n");
  try {
    openPPD(path);
    FAIL() << "opened";
  } catch (const Error& error) {
    EXPECT_THAT(error.what(), HasSubstr("/a\\x1b[2J\\n.ppd:1: "));
  }
}

TEST_F(OpenPPD, ADefaultThatIsNotListedOpens) {
  EXPECT_EQ(errorOf(with("*OpenUI *X/X: PickOne\n*DefaultX: Other\n*X A/A: \"\"\n*CloseUI: *X\n")),
            "opened");
}

TEST_F(OpenPPD, TextsAreInTheUsersLanguage) {
  const std::string path =
      write(with("*cupsLanguages: \"en de\"\n*de.Translation cardLaminate/Kartenlaminat: \"\"\n"
                 "*de.cardLaminate Front/Vorderseite: \"\"\n"));
  const test::ScopedLocale plain(LC_ALL, "C");  // LANG tells the language
  const char* const before = std::getenv("LANG");
  const std::string language = before == nullptr ? "" : before;
  setenv("LANG", "de_DE.UTF-8", 1);
  std::thread([&] {  // libcups keeps the language by thread
    const PPDFile file = openPPD(path);
    ppd_option_t* const option = ppdFindOption(file.get(), "cardLaminate");
    EXPECT_STREQ(option->text, "Kartenlaminat");
    EXPECT_STREQ(ppdFindChoice(option, "Front")->text, "Vorderseite");
  })
      .join();
  setenv("LANG", language.c_str(), 1);
}

}  // namespace
}  // namespace cardpanels::host
