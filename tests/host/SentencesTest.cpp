#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Conflicts.h"
#include "host/PPDRecords.h"
#include "host/Sentences.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Sentences : public testing::Test {
 protected:
  ppd_option_t& option(const std::string& key) { return *findOption(marks.ppd(), key); }

  void set(const std::string& key, const std::string& choice) {
    marks.set(option(key), {listedChoice(option(key), choice)});
  }

  void setValue(const std::string& key, const std::string& value) {
    const Marks::OwnNames names(marks);
    marks.set(option(key), {customChoice(option(key)), value});
  }

  Marks marks{opened(conflictPPD(kTwoParameters + exclusive("peelOff Full", "ribbon Mono") +
                                 exclusive("uv On", "Collate True")))};
};

TEST_F(Sentences, EachConflictIsToldOnce) {
  EXPECT_THAT(allConflicts(marks), IsEmpty());
  set("peelOff", "Full");
  set("ribbon", "Mono");
  set("Collate", "True");
  set("uv", "On");
  EXPECT_THAT(allConflicts(marks),
              ElementsAre("“Peel-Off Front” cannot be “Full” while “Ribbon” is “Monochrome”.",
                          "“Ultraviolet” cannot be “On” while “Collate” is “Yes”."));
}

TEST_F(Sentences, WhatIsNotMarkedIsCalledDefault) {
  marks.set(option("ribbon"), Mark());
  EXPECT_EQ(refusal(marks, option("uv"), {&option("ribbon")}),
            "“Ultraviolet” cannot be “Off” while “Ribbon” is “Default”.");
}

TEST_F(Sentences, ValuesAreToldAsTheyWereTyped) {
  setValue("area", "Custom.1in 1in 2in 2in");
  setValue("Mark", "{Text=a Size=3}");
  EXPECT_EQ(refusal(marks, option("area"), {&option("Mark")}),
            "“area” cannot be “1in 1in 2in 2in” while “Watermark” is “{Text=a Size=3}”.");
}

TEST_F(Sentences, ChangesOfOtherOptionsAreExplained) {
  setValue("Mark", "{Text=a Size=3}");
  const auto before = marks.snapshot();
  set("uv", "On");
  set("ribbon", "Gold");
  set("Mark", "None");
  marks.set(option("Collate"), Mark());
  EXPECT_EQ(explanation(marks, option("uv"), marks.changesSince(before)),
            "“Watermark” was changed from “{Text=a Size=3}” to “None”, because “Ultraviolet” is "
            "now “On”. “Ribbon” was changed from “Color” to “Gold”, because “Ultraviolet” is now "
            "“On”.");
}

TEST_F(Sentences, AValueThatIsMarkedNowIsToldAsItWasTyped) {
  setValue("area", "Custom.1in 1in 2in 2in");
  const auto before = marks.snapshot();
  setValue("Mark", "{Text=a Size=3}");
  set("area", "Default");
  EXPECT_EQ(explanation(marks, option("area"), marks.changesSince(before)),
            "“Watermark” was changed from “None” to “{Text=a Size=3}”, because “area” is now "
            "“None”.");
  EXPECT_EQ(loss(marks, option("Mark"), marks.changesSince(before)),
            "“Watermark” was not changed to “{Text=a Size=3}”, because that would remove “1in 1in "
            "2in 2in” of “area”.");
}

TEST_F(Sentences, EveryLostValueOfAnotherOptionIsNamed) {
  setValue("area", "Custom.1in 1in 2in 2in");
  setValue("Mark", "{Text=a Size=3}");
  const auto before = marks.snapshot();
  set("area", "Default");
  EXPECT_EQ(loss(marks, option("area"), marks.changesSince(before)), "");
  set("Mark", "None");
  set("uv", "On");
  EXPECT_EQ(loss(marks, option("uv"), marks.changesSince(before)),
            "“Ultraviolet” was not changed to “On”, because that would remove “1in 1in 2in 2in” of "
            "“area” and “{Text=a Size=3}” of “Watermark”.");
}

}  // namespace
}  // namespace cardpanels::host
