#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "dialog/AreaFaults.h"
#include "tests/host/TestJob.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AreaFaults : public testing::Test {
 protected:
  std::string fault(const std::string& area) {
    job.mark("frontResinInclude1", area);
    return areaFault(job, "frontResinInclude1");
  }

  host::JobOptions job = host::jobOf(
      test::testPPD({test::laminateOption()}, test::testAreaOption("frontResinInclude1") +
                                                  test::testAreaOption("CustombackNonPeelOff3") +
                                                  test::testAreaOption("area")));
};

TEST_F(AreaFaults, AreNoneOfFourMeasurements) {
  for (const char* area : {"1in 1in 2in 2in", "1 .5 2. 40", "1\" 1cm 2mm 2PX", " 1in  1in 2in 2in ",
                           "1 in 1in 2 \" 2in", "", "Default", "0in 0in 0in 0in"}) {
    EXPECT_EQ(fault(area), "") << area;
  }
}

TEST_F(AreaFaults, NameTheTextThatIsNoMeasurement) {
  for (const auto& [area, wrong] :
       {std::pair("abc 1in 1in 1in", "abc"), std::pair("1in 1,5cm 1in 1in", "1,5cm"),
        std::pair("1in 1in -2in 1in", "-2in"), std::pair("1in 1in 1in 1ft", "1ft"),
        std::pair("1in1in1in1in", "1in1in1in1in"), std::pair("in 1in 1in 1in", "in")}) {
    EXPECT_EQ(fault(area),
              "“frontResinInclude1” is no area: “" + std::string(wrong) + "” is no measurement.");
  }
}

TEST_F(AreaFaults, TellAWrongNumberOfMeasurements) {
  for (const std::string area : {"1in", "1in 1in 1in", "1in 1in 1in 1in 1in"}) {
    EXPECT_EQ(fault(area),
              "“frontResinInclude1” must be four measurements, X, Y, width and height, not “" +
                  area + "”.");
  }
}

TEST_F(AreaFaults, AreOnlyOfAreas) {
  job.mark("area", "abc");
  EXPECT_EQ(areaFault(job, "area"), "");
  EXPECT_EQ(areaFault(job, "cardLaminate"), "");
  EXPECT_EQ(areaFault(job, "nose"), "");
  EXPECT_THAT(areaFaults(job), IsEmpty());
}

TEST_F(AreaFaults, AreToldOfAllAreas) {
  job.mark("frontResinInclude1", "1in");
  job.mark("CustombackNonPeelOff3", "1 2 3 x");
  EXPECT_THAT(areaFaults(job),
              ElementsAre(areaFault(job, "frontResinInclude1"),
                          "“CustombackNonPeelOff3” is no area: “x” is no measurement."));
  EXPECT_NE(areaFault(job, "customBACKnonpeeloff3"), "");
}

}  // namespace
}  // namespace cardpanels::dialog
