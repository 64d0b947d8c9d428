// What cardprint does on a machine without the library of its dialog, and without a toolkit.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::string kBuilt = CARDPANELS_BUILD_DIR;
const std::string kLibrary = "libcardprint-dialog.so";
const std::string kSample =
    " --ppd " CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd -o cardLaminate=Both ";

test::Finished run(const std::string& command) {
  return test::runCommand("unset DISPLAY WAYLAND_DISPLAY LANGUAGE; " + command);
}

/// The program with all that it needs but its dialog.
class WithoutDialog : public testing::Test {
 protected:
  WithoutDialog() {
    std::filesystem::create_directories(folder_.path() / "lib");
    std::filesystem::create_directories(folder_.path() / "bin");
    std::filesystem::copy(kBuilt + "/bin/cardprint", program_);
    for (const auto& each : std::filesystem::directory_iterator(kBuilt + "/lib")) {
      if (each.path().filename() == kLibrary) continue;
      std::filesystem::create_symlink(each.path(), folder_.path() / "lib" / each.path().filename());
    }
  }

  static void expectNoDialog(const test::Finished& finished) {
    EXPECT_EQ(finished.status, 2);
    EXPECT_EQ(finished.output, "");
    EXPECT_THAT(finished.errors,
                AllOf(StartsWith("cardprint: The dialog cannot be opened: "), HasSubstr(kLibrary),
                      testing::EndsWith("; --no-dialog needs none.\n")));
  }

  test::TemporaryFolder folder_;
  std::string program_ = (folder_.path() / "bin" / "cardprint").string();
};

TEST_F(WithoutDialog, ItPrintsAtOnce) {
  const auto finished = run(program_ + kSample + "--no-dialog");
  EXPECT_EQ(finished.status, 0);
  EXPECT_EQ(finished.errors, "");
  EXPECT_EQ(finished.output,
            "Thermal Laminate\n    Thermal Laminate: Both Sides\n-o cardLaminate=Both\n");
}

TEST_F(WithoutDialog, ItSaysSo) {
  expectNoDialog(run(program_ + kSample));
  const auto german = run("LC_ALL=de_DE.UTF-8 " + program_ + kSample);
  EXPECT_EQ(german.status, 2);
  EXPECT_THAT(german.errors, StartsWith("cardprint: Der Dialog kann nicht geöffnet werden: "));
}

TEST_F(WithoutDialog, ItOpensNoneOfTheCurrentFolder) {
  const auto here = folder_.path() / "here";
  const auto library = std::filesystem::path(kBuilt) / "lib" / kLibrary;
  std::filesystem::create_directories(here / "lib");
  for (const auto& each : {here, here / "lib"}) {
    std::filesystem::create_symlink(library, each / kLibrary);
  }
  expectNoDialog(run("cd " + here.string() + " && " + program_ + kSample));
}

TEST_F(WithoutDialog, OneThatCannotBeLoadedIsNone) {
  folder_.write("lib/" + kLibrary, "no library\n");
  expectNoDialog(run(program_ + kSample));
}

TEST(CardprintsDialog, IsOpenedWhenItIsNeededOnly) {
  const auto loaded = [](const std::string& arguments) {
    return run("LD_DEBUG=files " + kBuilt + "/bin/cardprint " + arguments).errors;
  };
  for (const std::string& arguments :
       {kSample + "--no-dialog", std::string("--help"), std::string("--version")}) {
    EXPECT_THAT(loaded(arguments),
                AllOf(HasSubstr("libcardpanels-host.so"), Not(HasSubstr(kLibrary)),
                      Not(HasSubstr("libgtk-3")), Not(HasSubstr("libglib-2"))))
        << arguments;
  }
  EXPECT_THAT(loaded(kSample), AllOf(HasSubstr(kLibrary), HasSubstr("libgtk-3")));
}

}  // namespace
}  // namespace cardpanels
