#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <clocale>
#include <set>

#include "platform/Text.h"
#include "tests/resources/SamplePPD.h"

namespace cardpanels {
namespace {

using test::SamplePPD;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;
using testing::UnorderedElementsAre;

// libcups cuts a longer text off without a word.
constexpr std::size_t kCutOffSize = PPD_MAX_TEXT - 1;

constexpr std::array kTranslations{"de", "fr", "ja"};

std::vector<std::string> areaOptions(const std::string& side) {
  std::vector<std::string> keywords;
  for (const auto* number : {"1", "2", "3"}) {
    keywords.push_back(side + "ResinInclude" + number);
    keywords.push_back(side + "ResinExclude" + number);
    keywords.push_back("Custom" + side + "PeelOff" + number);
    keywords.push_back("Custom" + side + "NonPeelOff" + number);
  }
  return keywords;
}

std::vector<std::string> optionsWithAreas(std::vector<std::string> keywords,
                                          const std::vector<std::string>& sides) {
  for (const auto& side : sides) {
    const auto areas = areaOptions(side);
    keywords.insert(keywords.end(), areas.begin(), areas.end());
  }
  return keywords;
}

class EverySamplePPD : public testing::TestWithParam<const char*> {
 protected:
  SamplePPD ppd{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(, EverySamplePPD,
                         testing::Values("card-duplex.ppd", "card-single.ppd",
                                         "card-laminate.ppd"));

TEST_P(EverySamplePPD, HasDefaultsWithoutConflict) { EXPECT_EQ(ppdConflicts(ppd.file()), 0); }

TEST_P(EverySamplePPD, NamesItsModelNumber) { EXPECT_GT(ppd.file()->model_number, 0); }

TEST_P(EverySamplePPD, HasEveryTextInFourLanguages) {
  const auto texts = ppd.texts();
  ASSERT_THAT(texts, Not(IsEmpty()));
  for (const auto& text : texts) {
    EXPECT_THAT(text.text, Not(IsEmpty())) << text.keyword << ' ' << text.spec;
    EXPECT_LT(text.text.size(), kCutOffSize) << text.text;
    for (const auto* language : kTranslations) {
      const std::string translation = ppd.translation(language, text);
      EXPECT_THAT(translation, Not(IsEmpty()))
          << language << ' ' << text.keyword << ' ' << text.spec;
      EXPECT_TRUE(platform::isUTF8(translation)) << translation;
      EXPECT_LT(translation.size(), kCutOffSize) << translation;
    }
  }
}

// The test runs in a German locale.
TEST_P(EverySamplePPD, ShowsTheUsersLanguage) {
  ASSERT_NE(std::setlocale(LC_ALL, ""), nullptr);
  const auto english = ppd.texts();
  ASSERT_EQ(ppdLocalize(ppd.file()), 0);
  const auto shown = ppd.texts();
  ASSERT_EQ(shown.size(), english.size());
  for (std::size_t i = 0; i < shown.size(); ++i) {
    EXPECT_EQ(shown[i].text, ppd.translation("de", english[i]));
  }
}

TEST_P(EverySamplePPD, HasOptionTitlesThatDifferInEveryLanguage) {
  std::set<std::pair<std::string, std::string>> titles;
  for (const auto& keyword : ppd.options()) {
    const std::string english = ppdFindOption(ppd.file(), keyword.c_str())->text;
    EXPECT_TRUE(titles.insert({"en", english}).second) << keyword;
    for (const auto* language : kTranslations) {
      const auto title = ppd.translation(language, {"Translation", keyword, english});
      EXPECT_TRUE(titles.insert({language, title}).second) << keyword << ' ' << language;
    }
  }
}

TEST(DuplexPPD, HasEveryOption) {
  EXPECT_THAT(SamplePPD("card-duplex.ppd").options(),
              testing::UnorderedElementsAreArray(optionsWithAreas(
                  {"frontRibbon", "backRibbon", "frontResin", "backResin", "frontUV", "backUV",
                   "frontUVMAC", "backUVMAC", "frontPO", "backPO", "cardLaminate", "frontRotation",
                   "backRotation", "entryCardFlip", "magEncodeCardFlip"},
                  {"front", "back"})));
}

TEST(SinglePPD, HasTheFrontOnlyAndNeitherLaminateNorMAC) {
  EXPECT_THAT(
      SamplePPD("card-single.ppd").options(),
      testing::UnorderedElementsAreArray(optionsWithAreas(
          {"frontRibbon", "frontResin", "frontUV", "frontPO", "frontRotation"}, {"front"})));
}

TEST(LaminatePPD, HasTheLaminateOnly) {
  EXPECT_THAT(SamplePPD("card-laminate.ppd").options(), ElementsAre("cardLaminate"));
}

TEST(DuplexPPD, HasTheChoicesThatPanelsFindByPosition) {
  const SamplePPD ppd("card-duplex.ppd");
  for (const std::string side : {"front", "back"}) {
    EXPECT_EQ(ppd.choices(side + "Ribbon").at(3), "YMCK");
    EXPECT_EQ(ppd.choices(side + "Resin").at(11), "DefinedAreas");
    EXPECT_EQ(ppd.choices(side + "PO").at(12), "DefinedAreas");
    EXPECT_GE(ppd.choices(side + "Ribbon").size(), 6U);
    EXPECT_GE(ppd.choices(side + "Resin").size(), 13U);
    EXPECT_GE(ppd.choices(side + "PO").size(), 14U);
  }
}

TEST(DuplexPPD, TakesAnAreaOfUpTo83CharactersInEveryAreaOption) {
  const SamplePPD ppd("card-duplex.ppd");
  for (const auto& keyword : optionsWithAreas({}, {"front", "back"})) {
    EXPECT_THAT(ppd.choices(keyword), ElementsAre("Default"));
    auto* custom = ppdFindCustomOption(ppd.file(), keyword.c_str());
    ASSERT_NE(custom, nullptr) << keyword;
    const auto* area = ppdFirstCustomParam(custom);
    ASSERT_NE(area, nullptr) << keyword;
    EXPECT_EQ(area->type, PPD_CUSTOM_STRING) << keyword;
    EXPECT_EQ(area->minimum.custom_string, 0) << keyword;
    EXPECT_EQ(area->maximum.custom_string, 83) << keyword;
    EXPECT_EQ(ppdNextCustomParam(custom), nullptr) << keyword;
  }
}

class DuplexConflict : public testing::Test {
 protected:
  SamplePPD ppd{"card-duplex.ppd"};
};

TEST_F(DuplexConflict, UVTakesTheRibbonThatHasUV) {
  const auto resolution = ppd.choose("frontUV", "Text");
  EXPECT_TRUE(resolution.conflict);
  EXPECT_TRUE(resolution.resolved);
  EXPECT_THAT(resolution.changes, ElementsAre(Pair("frontRibbon", "YMCF")));
}

TEST_F(DuplexConflict, ARibbonWithoutUVTakesBothKindsOfUVAway) {
  ppd.mark("backRibbon", "YMCF");
  ppd.mark("backUV", "Logo");
  ppd.mark("backUVMAC", "Serial");
  const auto resolution = ppd.choose("backRibbon", "K");
  EXPECT_TRUE(resolution.conflict);
  EXPECT_THAT(resolution.changes,
              UnorderedElementsAre(Pair("backUV", "None"), Pair("backUVMAC", "None")));
}

TEST_F(DuplexConflict, FlipAtEntryPutsTheEncodersFlipBackToItsDefault) {
  ppd.mark("magEncodeCardFlip", "FlipAndReturn");
  const auto resolution = ppd.choose("entryCardFlip", "Flip");
  EXPECT_TRUE(resolution.conflict);
  EXPECT_THAT(resolution.changes, ElementsAre(Pair("magEncodeCardFlip", "None")));
}

TEST_F(DuplexConflict, PeelOffOfOneSideLeavesTheLaminateOfTheOther) {
  ppd.mark("cardLaminate", "Both");
  EXPECT_THAT(ppd.choose("frontPO", "Chip").changes, Contains(Pair("cardLaminate", "Back")));
  ppd.mark("frontPO", "None");
  EXPECT_THAT(ppd.choose("backPO", "Stripe").changes, Contains(Pair("cardLaminate", "Front")));
}

TEST_F(DuplexConflict, LaminateOfBothSidesTakesThePeelOffOfBothAway) {
  ppd.mark("frontPO", "Chip");
  ppd.mark("backPO", "Stripe");
  EXPECT_THAT(ppd.choose("cardLaminate", "Both").changes,
              UnorderedElementsAre(Pair("frontPO", "None"), Pair("backPO", "None")));
}

class LaminateConflict : public testing::TestWithParam<const char*> {
 protected:
  SamplePPD ppd{GetParam()};
};

INSTANTIATE_TEST_SUITE_P(, LaminateConflict,
                         testing::Values("card-duplex.ppd", "card-laminate.ppd"));

TEST_P(LaminateConflict, LaminateOfAnOversizeCardCannotBeResolved) {
  ppd.mark("PageSize", "CR100");
  const auto resolution = ppd.choose("cardLaminate", "Front");
  EXPECT_TRUE(resolution.conflict);
  EXPECT_FALSE(resolution.resolved);
  EXPECT_THAT(resolution.changes, IsEmpty());
}

TEST_P(LaminateConflict, AnOversizeCardTakesTheLaminateAway) {
  ppd.mark("cardLaminate", "Both");
  const auto resolution = ppd.choose("PageSize", "CR100");
  EXPECT_TRUE(resolution.conflict);
  EXPECT_TRUE(resolution.resolved);
  EXPECT_THAT(resolution.changes, ElementsAre(Pair("cardLaminate", "None")));
}

}  // namespace
}  // namespace cardpanels
