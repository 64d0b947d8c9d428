#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <filesystem>
#include <stdexcept>

#include "host/Presets.h"
#include "host/SavedOptions.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/Process.h"
#include "tests/support/ScopedVariable.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::Field;
using testing::HasSubstr;
using Options = std::vector<Option>;
using test::ChildProcess;

/// A user, and an administrator, with files of their own.
class SavedPresets : public testing::Test {
 protected:
  std::string administrators(const std::string& lines) { return folder.write("lpoptions", lines); }
  std::string users(const std::string& lines) {
    return folder.write("home/.cups/lpoptions", lines);
  }
  std::string usersLines() const { return test::fileContent(file); }

  /// Lets `action` do its work under a limit of that many bytes a file, told or not by a signal.
  template <typename Action>
  static bool succeedsWithin(rlim_t bytes, Action action) {
    return ChildProcess([&] {
             signal(SIGXFSZ, SIG_DFL);
             const rlimit limit{bytes, bytes};
             setrlimit(RLIMIT_FSIZE, &limit);
             action();
           })
        .succeeds();
  }

  std::vector<std::filesystem::path> filesBeside() const {
    std::vector<std::filesystem::path> all;
    for (const auto& each : std::filesystem::directory_iterator(file.parent_path())) {
      all.push_back(each.path().filename());
    }
    return all;
  }

  test::TemporaryFolder folder;
  std::filesystem::path file = folder.path() / "home/.cups/lpoptions";
  test::ScopedVariable root{"CUPS_SERVERROOT", folder.path().string()};
  test::ScopedVariable home{"HOME", (folder.path() / "home").string()};
};

TEST_F(SavedPresets, AreTheInstancesOfTheQueueByName) {
  administrators("Dest card/staff cardLaminate=Both\nDest card copies=3\n");
  users("Dest card/visitors cardLaminate=Front\nDest other/guests a=b\nDefault card/Kiosk a=c\n");
  EXPECT_EQ(presetsOf("card"), (std::vector<Preset>{
                                   {"", true, {{"copies", "3"}}},
                                   {"Kiosk", false, {{"a", "c"}}},
                                   {"staff", true, {{"cardLaminate", "Both"}}},
                                   {"visitors", false, {{"cardLaminate", "Front"}}},
                               }));
}

TEST_F(SavedPresets, AnEmptyStandardComesFirstWhenNothingIsSaved) {
  EXPECT_EQ(presetsOf("card"), std::vector<Preset>(1));
}

TEST_F(SavedPresets, TheUsersOwnOfTheSameNameWins) {
  administrators("Dest card/staff cardLaminate=Both copies=2\n");
  users("Dest CARD/Staff cardLaminate=Front\n");
  EXPECT_THAT(
      presetsOf("card"),
      ElementsAre(Preset{}, Preset{"staff", false, {{"cardLaminate", "Front"}, {"copies", "2"}}}));
  deletePreset({"card", "staff"});
  EXPECT_THAT(
      presetsOf("card"),
      ElementsAre(Preset{}, Preset{"staff", true, {{"cardLaminate", "Both"}, {"copies", "2"}}}));
}

TEST_F(SavedPresets, AFileThatCannotBeReadIsToldAndKept) {
  std::filesystem::create_directories(file);  // a folder in its place
  EXPECT_THAT(errorOf([] { presetsOf("card"); }),
              HasSubstr("/.cups/lpoptions cannot be read: Is a directory"));
  EXPECT_THAT(errorOf([] {
                savePreset({"card", "visitors"}, {{"a", "b"}});
              }),
              HasSubstr("Is a directory"));
}

TEST_F(SavedPresets, TheNameIsHeldToTheRulesOfCUPS) {
  EXPECT_EQ(presetNameFault("visitors"), "");
  EXPECT_EQ(presetNameFault("Besucher_2-A.b@ä日"), "");
  EXPECT_EQ(presetNameFault(""), "A preset needs a name.");
  EXPECT_EQ(presetNameFault("two words"), "A preset's name cannot have spaces.");
  for (const char* each : {"a/b", "a#b", "a'b", "a\"b", "a\\b", "a?b"}) {
    EXPECT_EQ(presetNameFault(each),
              std::string("A preset's name cannot have the character ") + each[1] + ".");
  }
  EXPECT_EQ(presetNameFault("a\tb"), "A preset's name cannot have control characters.");
  EXPECT_EQ(presetNameFault("a\x80"), "A preset's name must be text in UTF-8.");
  EXPECT_EQ(presetNameFault(std::string(127, 'a')), "");
  EXPECT_EQ(presetNameFault(std::string(128, 'a')), "This name is too long for the print system.");
}

TEST_F(SavedPresets, WhatOthersHaveSavedStaysByteByByte) {
  const std::string others =
      "# mine\n\n  dest  other/a   x=\"1  2\"  y='3' # why\nSomething else\n"
      "Default card a=b noc\nDest card/b x={a=1 b=2}\r\n";
  users(others);
  savePreset({"card", "visitors"}, {{"area", "Custom.1in 1in 2in 2in"}});
  EXPECT_EQ(usersLines(), others + "Dest card/visitors area=\"Custom.1in 1in 2in 2in\"\n");
  savePreset({"card", "visitors"}, {{"area", "None"}});
  EXPECT_EQ(usersLines(), others + "Dest card/visitors area=\"None\"\n");
  deletePreset({"card", "visitors"});
  EXPECT_EQ(usersLines(), others);
}

TEST_F(SavedPresets, ALastLineWithoutAnEndIsNotWrittenOnto) {
  users("Dest other a=b");
  savePreset({"card", "visitors"}, {{"a", "c"}});
  EXPECT_EQ(usersLines(), "Dest other a=b\nDest card/visitors a=\"c\"\n");
}

TEST_F(SavedPresets, SavingKeepsWhatElseTheInstanceHasAndItsPlace) {
  users(
      "Dest card/a x=1\nDest card/visitors sides=one media=CR79 cardLaminate=Both\nDest card "
      "b=2\n");
  savePreset({"card", "visitors"}, {{"cardLaminate", "None"}, {"PageSize", "CR80"}});
  EXPECT_EQ(usersLines(),
            "Dest card/a x=1\n"
            "Dest card/visitors cardLaminate=\"None\" PageSize=\"CR80\" sides=\"one\"\n"
            "Dest card b=2\n");
}

TEST_F(SavedPresets, AnInstanceThatIsTheDefaultHandsThatToItsQueue) {
  users("Dest other a=b\nDefault card/visitors a=b\nDest card c=d\n");
  deletePreset({"card", "visitors"});
  EXPECT_EQ(usersLines(), "Dest other a=b\nDefault card c=\"d\"\n");
  EXPECT_EQ(userDefault(), (QueueName{"card", ""}));
}

TEST_F(SavedPresets, APresetThatLibcupsCouldNotReadAsOneLineIsNotSaved) {
  users("Dest card/a x=1\n");
  EXPECT_THAT(errorOf([] {
                savePreset({"card", "visitors"}, {{"area", std::string(8200, 'a')}});
              }),
              HasSubstr("card/visitors cannot be saved: "));
  EXPECT_EQ(usersLines(), "Dest card/a x=1\n");
}

TEST_F(SavedPresets, TheFirstFileIsForTheUserAlone) {
  std::filesystem::create_directory(folder.path() / "home");
  savePreset({"card", "visitors"}, {{"a", "b"}});
  struct stat status {};
  ASSERT_EQ(stat(file.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0600U);
  ASSERT_EQ(stat(file.parent_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0700U);
}

TEST_F(SavedPresets, ModeOwnerAndASymbolicLinkStay) {
  constexpr uid_t kSomebody = 4711;
  const std::string real = folder.write("dotfiles/lpoptions", "Dest card/a x=1\n");
  std::filesystem::create_directories(file.parent_path());
  std::filesystem::create_symlink(real, file);
  ASSERT_EQ(chmod(real.c_str(), 0640), 0);
  ASSERT_EQ(chown(real.c_str(), getuid() == 0 ? kSomebody : getuid(), static_cast<gid_t>(-1)), 0);
  savePreset({"card", "visitors"}, {{"a", "b"}});
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(test::fileContent(real), "Dest card/a x=1\nDest card/visitors a=\"b\"\n");
  struct stat status {};
  ASSERT_EQ(stat(real.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_EQ(status.st_uid, getuid() == 0 ? kSomebody : getuid());
}

TEST_F(SavedPresets, ALinkToAFileThatIsNotThereYetIsFilled) {
  std::filesystem::create_directories(file.parent_path());
  std::filesystem::create_symlink(folder.path() / "later", file);
  savePreset({"card", "visitors"}, {{"a", "b"}});
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(test::fileContent(folder.path() / "later"), "Dest card/visitors a=\"b\"\n");
}

TEST_F(SavedPresets, SeveralProgramsThatSaveAtOnceLoseNothing) {
  constexpr int kEach = 40;
  users("Dest card copies=3\n");
  const auto save = [](const std::string& mine) {
    return [mine] {
      for (int i = 0; i < kEach; ++i) savePreset({"card", mine + std::to_string(i)}, {{"a", mine}});
    };
  };
  ChildProcess first(save("first"));
  ChildProcess second(save("second"));
  ChildProcess third(save("third"));
  EXPECT_TRUE(first.succeeds());
  EXPECT_TRUE(second.succeeds());
  EXPECT_TRUE(third.succeeds());
  EXPECT_EQ(presetsOf("card").size(), 1U + 3 * kEach);
  EXPECT_THAT(presetsOf("card").front().options, ElementsAre(Option{"copies", "3"}));
  EXPECT_THAT(filesBeside(), ElementsAre("lpoptions"));
}

TEST_F(SavedPresets, AFullDiskLosesNothing) {
  const std::string before = "Dest card/a x=" + std::string(3000, 'x') + "\n";
  users(before);
  EXPECT_FALSE(succeedsWithin(3050, [] {
    savePreset({"card", "visitors"}, {{"a", std::string(100, 'b')}});
  }));
  EXPECT_EQ(usersLines(), before);
  EXPECT_THAT(filesBeside(), ElementsAre("lpoptions"));
  // It was told, by a limit that ends a program which does not ask to be told.
  EXPECT_TRUE(succeedsWithin(3050, [] {
    const auto told = errorOf([] {
      savePreset({"card", "visitors"}, {{"a", std::string(100, 'b')}});
    });
    if (told.find("cannot be saved: File too large") == std::string::npos) {
      throw std::runtime_error(told);
    }
    if (told.find("card/visitors") == std::string::npos) throw std::runtime_error(told);
  }));
}

TEST_F(SavedPresets, AReadOnlyHomeIsToldAndLosesNothing) {
  constexpr uid_t kNobody = 65534;
  const std::string before = "Dest card/a x=1\n";
  users(before);
  // The file itself could be written.
  std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
  std::filesystem::permissions(file, std::filesystem::perms{0666});
  std::filesystem::permissions(file.parent_path(), std::filesystem::perms{0555});
  const auto isTold = [](void (*change)(), const char* sentence) {
    return ChildProcess([&] {
             if (getuid() == 0 && setuid(kNobody) != 0) throw std::runtime_error("root");
             if (errorOf(change).find(sentence) == std::string::npos) {
               throw std::runtime_error(errorOf(change));
             }
           })
        .succeeds();
  };
  EXPECT_TRUE(isTold(
      [] {
        savePreset({"card", "visitors"}, {{"a", "b"}});
      },
      "cannot be saved: Permission denied"));
  EXPECT_TRUE(isTold([] { deletePreset({"card", "a"}); }, "cannot be deleted: Permission denied"));
  EXPECT_EQ(usersLines(), before);
  std::filesystem::permissions(file.parent_path(), std::filesystem::perms::all);
}

TEST(PresetsAtAServer, AreReadByLpAndKeptByLpoptions) {
  test::PrivatePrintServer server;
  server.addQueue("card", test::testPPD({test::laminateOption()}, test::testAreaOption("area")));
  const test::TemporaryFolder folder;
  const std::string file = folder.write("badge.txt", "a badge\n");
  savePreset({"card", "visitors"},
             {{"cardLaminate", "Front"}, {"area", "Custom.1.25in 1in 2in 2in"}, {"copies", "2"}});
  server.saveOptions("card/other", "cardLaminate=Both");
  EXPECT_THAT(test::runCommand("lpoptions -p card/visitors").output,
              HasSubstr("area='Custom.1.25in 1in 2in 2in'"));
  const auto lp = test::runCommand("lp -d card/visitors " + file);
  ASSERT_EQ(lp.status, 0) << lp.errors;
  const auto job = server.job(std::stoi(lp.output.substr(lp.output.find('-') + 1)));
  EXPECT_EQ(job.at("cardLaminate"), "Front");
  EXPECT_EQ(job.at("area"), "Custom.1.25in 1in 2in 2in");
  EXPECT_EQ(job.at("copies"), "2");
  EXPECT_THAT(presetsOf("card"),
              ElementsAre(Field(&Preset::name, ""), Field(&Preset::name, "other"),
                          Preset{"visitors",
                                 false,
                                 {{"area", "Custom.1.25in 1in 2in 2in"},
                                  {"cardLaminate", "Front"},
                                  {"copies", "2"}}}));
  deletePreset({"card", "visitors"});
  // For root, lpoptions of CUPS 2.4.10 keeps them all in the administrator's file too.
  EXPECT_THAT(test::fileContent(server.home() + "/.cups/lpoptions"),
              testing::Not(HasSubstr("visitors")));
  EXPECT_THAT(test::runCommand("lpoptions -p card/other").output, HasSubstr("cardLaminate=Both"));
}

}  // namespace
}  // namespace cardpanels::host
