#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/JobAttributes.h"

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

TEST(JobAttributes, AreNothingElse) {
  for (const char* key : {"", "nose", "Copies", "printer-uri", "printer-info", "copies-default",
                          "job-id", "job-state", "requested-attributes"}) {
    EXPECT_FALSE(isJobAttribute(key)) << key;
  }
}

}  // namespace
}  // namespace cardpanels::host
