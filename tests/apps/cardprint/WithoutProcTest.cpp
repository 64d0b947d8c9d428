// cardprint where /proc is not mounted; the sanitizers cannot do without.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "tests/support/Process.h"

namespace cardpanels {
namespace {

test::Finished withoutProc(const std::string& command) {
  return test::runCommand(
      "unshare --user --map-root-user --mount sh -c 'mount -t tmpfs none /proc && " + command +
      "'");
}

TEST(WithoutProc, CardprintGoesOn) {
  if (withoutProc("true").status != 0) GTEST_SKIP() << "nobody may unmount /proc here";
  const auto finished = withoutProc(
      "LC_ALL=C LD_LIBRARY_PATH=" CARDPANELS_BUILD_DIR "/lib " CARDPANELS_BUILD_DIR
      "/bin/cardprint --no-dialog --ppd " CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd");
  EXPECT_EQ(finished.status, 0) << finished.errors;
  EXPECT_THAT(finished.output, testing::StartsWith("Thermal Laminate\n"));
}

}  // namespace
}  // namespace cardpanels
