// What handlers of the dialog throw.
#include <glibmm/error.h>
#include <glibmm/main.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "apps/cardprint-dialog/CardDialog.h"
#include "apps/cardprint-dialog/GtkWindows.h"
#include "apps/cardprint/CardJob.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/support/RecordedLog.h"

namespace cardpanels::cardprint {
namespace {

class DialogErrors : public testing::Test {
 protected:
  static Arguments sample() {
    setenv("CARDPANELS_BUNDLE", CARDPANELS_BUILD_DIR "/lib/cardpanels.bundle", 1);
    Arguments arguments;
    arguments.ppd = CARDPANELS_SOURCE_DIR "/resources/ppd/card-laminate.ppd";
    return arguments;
  }

  test::RecordedLog log_;
  GtkWindows windows_;
  CardJob job_{sample(), windows_};
};

TEST_F(DialogErrors, EndTheDialog) {
  CardDialog dialog(job_, windows_.waiter());
  Glib::signal_idle().connect_once([] { throw std::runtime_error("idle"); });
  EXPECT_THROW(dialog.choose(), std::runtime_error);
}

TEST_F(DialogErrors, OfGLibEndTheDialog) {
  CardDialog dialog(job_, windows_.waiter());
  Glib::signal_idle().connect_once([] { throw Glib::Error(1, 2, "three"); });
  EXPECT_THROW(dialog.choose(), Glib::Error);
}

TEST_F(DialogErrors, OfGLibLeaveTheWindowsAsTheProgramsOwn) {
  Glib::signal_idle().connect_once([] { throw Glib::Error(1, 2, "three"); });
  EXPECT_THROW(windows_.choose(job_, ""), host::Error);
}

TEST_F(DialogErrors, OfGLibInWhatIsWaitedForAreTheProgramsOwnToo) {
  EXPECT_THROW(
      windows_.waiter().wait("work", [](const host::Terms&) { throw Glib::Error(1, 2, "three"); }),
      host::Error);
}

}  // namespace
}  // namespace cardpanels::cardprint
