#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Conflicts.h"
#include "host/PPDRecords.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Conflicts : public testing::Test {
 protected:
  ppd_option_t& option(const std::string& key) { return *findOption(marks.ppd(), key); }

  void set(const std::string& key, const std::string& choice) {
    marks.set(option(key), {listedChoice(option(key), choice)});
  }

  Marks marks{opened(conflictPPD(
      exclusive("peelOff Full", "ribbon Mono") + exclusive("uv On", "PageSize CR80") +
      exclusive("uv On", "PageRegion CR80") + "*UIConstraints: *Collate True *Customarea True\n"))};
};

TEST_F(Conflicts, AreNoneWithTheDefaults) {
  EXPECT_EQ(conflictCount(marks), 0);
  EXPECT_THAT(conflictedOptions(marks), IsEmpty());
}

TEST_F(Conflicts, CountForTheOptionsThatTakePart) {
  set("peelOff", "Full");
  set("ribbon", "Mono");
  set("uv", "On");
  EXPECT_EQ(conflictCount(marks), 3);  // both directions of a pair count once,
  EXPECT_EQ(conflictCount(marks, option("peelOff")), 1);
  EXPECT_EQ(conflictCount(marks, option("uv")), 2);  // page size and page region each
  EXPECT_EQ(conflictCount(marks, option("Collate")), 0);
}

TEST_F(Conflicts, AreAskedWithoutATraceInTheMarks) {
  set("uv", "On");
  const Marks::Snapshot before = marks.snapshot();
  EXPECT_THAT(conflictsWith(marks, option("PageSize")), ElementsAre(&option("uv")));
  EXPECT_THAT(marks.changesSince(before), IsEmpty());
  EXPECT_STREQ(ppdPageSize(marks.ppd(), nullptr)->name, "CR80");
  EXPECT_EQ(conflictCount(marks), 2);
}

TEST_F(Conflicts, PartnersAreOnlyThoseOfTheSameConstraint) {
  set("peelOff", "Full");
  set("ribbon", "Mono");
  set("uv", "On");
  EXPECT_THAT(conflictsWith(marks, option("ribbon")), ElementsAre(&option("peelOff")));
  EXPECT_THAT(conflictsWith(marks, option("Collate")), IsEmpty());
}

TEST_F(Conflicts, ConcernMarkedValuesToo) {
  set("Collate", "True");
  marks.set(option("area"), {customChoice(option("area")), "Custom.1in 1in 2in 2in"});
  EXPECT_EQ(conflictCount(marks), 1);
  EXPECT_THAT(conflictsWith(marks, option("Collate")), ElementsAre(&option("area")));
  EXPECT_EQ(markName(marks.ppd(), "area"), "Custom.1in 1in 2in 2in");
}

}  // namespace
}  // namespace cardpanels::host
