#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/CommonPPD.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class CommonPPDs : public testing::Test {
 protected:
  /// Opens what the texts have in common.
  ppd_file_t* common(const std::vector<std::string>& texts) {
    std::vector<NamedPPD> ppds;
    ppds.reserve(texts.size());
    for (const std::string& each : texts)
      ppds.push_back({"ppd" + std::to_string(ppds.size()), each});
    CommonPPD found = commonPPD(ppds);
    leftOut = std::move(found.leftOut);
    text = found.text;
    ppd = openPPD(folder.write("common.ppd", found.text));
    return ppd.get();
  }

  bool has(const char* option, const char* choice) const {
    return ppdFindChoice(ppdFindOption(ppd.get(), option), choice) != nullptr;
  }

  test::TemporaryFolder folder;
  std::string text;
  std::vector<std::string> leftOut;
  PPDFile ppd;
};

const test::TestOption kFlip{"entryCardFlip", "Flip", {{"Off", "Off"}, {"On", "On"}}, ""};

TEST_F(CommonPPDs, OfEqualPPDsAreTheFirst) {
  const std::string one = test::testPPD({test::laminateOption(), kFlip});
  common({one, one});
  EXPECT_EQ(text, one);
  EXPECT_THAT(leftOut, IsEmpty());
}

TEST_F(CommonPPDs, HaveOptionsAndChoicesThatAllHave) {
  test::TestOption gold = test::laminateOption();
  gold.choices.push_back({"Gold", "Gold foil"});
  common({test::testPPD({gold, kFlip}), test::testPPD({test::laminateOption()}),
          test::testPPD({test::laminateOption(), test::testOption("frontPO", "Peel", 3)})});
  EXPECT_TRUE(has("cardLaminate", "Both"));
  EXPECT_FALSE(has("cardLaminate", "Gold"));
  EXPECT_EQ(ppdFindOption(ppd.get(), "entryCardFlip"), nullptr);
  EXPECT_EQ(ppdFindOption(ppd.get(), "frontPO"), nullptr);
  EXPECT_THAT(leftOut, ElementsAre("Card Laminate: Gold foil", "Flip", "Peel"));
}

TEST_F(CommonPPDs, HaveAnotherDefaultWhereItsChoiceIsNotThere) {
  test::TestOption gold = test::laminateOption();
  gold.choices.push_back({"Gold", "Gold"});
  gold.defaultChoice = "Gold";
  common({test::testPPD({gold}), test::testPPD({test::laminateOption()})});
  ppdMarkDefaults(ppd.get());
  EXPECT_STREQ(ppdFindMarkedChoice(ppd.get(), "cardLaminate")->choice, "None");
}

TEST_F(CommonPPDs, LeaveOutAnOptionWithoutACommonChoice) {
  const test::TestOption one{"frontPO", "Peel", {{"A", "A"}}, ""};
  const test::TestOption other{"frontPO", "Peel", {{"B", "B"}}, ""};
  common({test::testPPD({one, kFlip}), test::testPPD({other, kFlip})});
  EXPECT_EQ(ppdFindOption(ppd.get(), "frontPO"), nullptr);
  EXPECT_THAT(leftOut, ElementsAre("Peel"));
}

TEST_F(CommonPPDs, TakeOwnValuesWhereAllTakeTheSame) {
  const std::string area = test::testAreaOption("frontResinInclude1");
  const std::string plain = test::testPPD({kFlip}, area);
  common({plain, plain + "\n"});
  EXPECT_NE(ppdFindCustomOption(ppd.get(), "frontResinInclude1"), nullptr);
  std::string shorter = area;
  shorter.replace(shorter.find("0 83"), 4, "0 20");
  common({plain, test::testPPD({kFlip}, shorter)});
  EXPECT_EQ(ppdFindCustomOption(ppd.get(), "frontResinInclude1"), nullptr);
  EXPECT_NE(ppdFindOption(ppd.get(), "frontResinInclude1"), nullptr);
}

TEST_F(CommonPPDs, ForbidWhatOneForbids) {
  const std::vector<test::TestOption> options = {test::laminateOption(), kFlip};
  const std::string free = test::testPPD(options);
  const std::string old = "*UIConstraints: *cardLaminate Both *entryCardFlip On\n";
  const std::string recent =
      "*cupsUIConstraints flips: \"*cardLaminate Front *entryCardFlip On\"\n";
  const auto conflicts = [this](const char* laminate) {
    ppdMarkDefaults(ppd.get());
    ppdMarkOption(ppd.get(), "entryCardFlip", "On");
    ppdMarkOption(ppd.get(), "cardLaminate", laminate);
    return ppdConflicts(ppd.get()) != 0;
  };
  common({free, free + old});
  EXPECT_TRUE(conflicts("Both"));
  EXPECT_FALSE(conflicts("Front"));
  common({free + old, free + recent});
  EXPECT_TRUE(conflicts("Both"));
  EXPECT_TRUE(conflicts("Front"));
  EXPECT_FALSE(conflicts("Back"));
  common({free + recent, free + old});
  EXPECT_TRUE(conflicts("Both"));
  EXPECT_TRUE(conflicts("Front"));
}

TEST_F(CommonPPDs, OfTextsThatAreNoneAreToldByNameAndLine) {
  const std::string good = test::testPPD({kFlip});
  EXPECT_THAT(errorOf([&] {
                commonPPD({{"one", good}, {"two", good + "*OpenUI *a/A: PickOne\n*a b/B: \"\"\n"}});
              }),
              HasSubstr("two:"));
}

}  // namespace
}  // namespace cardpanels::host
