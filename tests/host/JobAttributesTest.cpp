#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/JobAttributes.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

TEST(JobAttributes, AreWhatLibcupsSendsWithAJob) {
  for (const char* key :
       {"copies", "media", "media-col", "fit-to-page", "landscape", "orientation-requested",
        "page-ranges", "job-hold-until", "job-priority", "number-up", "sides", "job-sheets",
        "print-quality", "document-format", "raw", "notify-events", "job-account-id", "scaling"}) {
    EXPECT_TRUE(isJobAttribute(key)) << key;
  }
}

TEST(JobAttributes, AreWhatFiltersTake) {
  for (const char* key : {"page-set", "collate", "Collate", "cpi", "fill"}) {
    EXPECT_TRUE(isJobAttribute(key)) << key;
  }
}

TEST(JobAttributes, AreWhatTheServerNames) {
  test::PrivatePrintServer server;
  server.addQueue("card", test::testPPD({}));
  const auto named = supportedJobAttributes("card");
  for (const char* key : {"copies", "ipp-attribute-fidelity", "printer-resolution", "sides"}) {
    EXPECT_TRUE(named.contains(key)) << key;
  }
  EXPECT_FALSE(named.contains("nose"));
  EXPECT_THAT(errorOf([] { supportedJobAttributes("cord"); }),
              testing::HasSubstr("cannot be asked"));
}

TEST(JobAttributes, AreNothingElse) {
  for (const char* key : {"", "nose", "Copies", "printer-uri", "printer-info", "copies-default",
                          "job-id", "job-state", "requested-attributes"}) {
    EXPECT_FALSE(isJobAttribute(key)) << key;
  }
}

}  // namespace
}  // namespace cardpanels::host
