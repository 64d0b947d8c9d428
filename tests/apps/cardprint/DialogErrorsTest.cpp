// What handlers of the dialog throw.
#include <glibmm/error.h>
#include <glibmm/main.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "apps/cardprint/CardDialog.h"
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
  WindowWaiter waiter_;
  CardJob job_{sample(), waiter_};
  CardDialog dialog_{job_, waiter_};
};

TEST_F(DialogErrors, EndTheDialog) {
  Glib::signal_idle().connect_once([] { throw std::runtime_error("idle"); });
  EXPECT_THROW(dialog_.choose(), std::runtime_error);
}

TEST_F(DialogErrors, OfGLibEndTheDialog) {
  Glib::signal_idle().connect_once([] { throw Glib::Error(1, 2, "three"); });
  EXPECT_THROW(dialog_.choose(), Glib::Error);
}

}  // namespace
}  // namespace cardpanels::cardprint
