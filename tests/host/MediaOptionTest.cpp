#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/Error.h"
#include "host/JobOptions.h"
#include "host/MediaOption.h"
#include "tests/host/TestJob.h"

namespace cardpanels::host {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Options = std::vector<Option>;

/// Sources and materials, and sizes of one's own.
std::string mediaPPD() {
  return test::testPPD(
      {{"InputSlot", "Hopper", {{"Auto", "Any"}, {"Tray1", "First"}, {"Tray2", "Second"}}, {}},
       {"MediaType", "Material", {{"Auto", "Any"}, {"CardPVC", "PVC"}, {"PET-G", "PET-G"}}, {}},
       test::laminateOption()},
      std::string(kCustomPageSize) + exclusive("cardLaminate Both", "PageSize CR79"));
}

TEST(MediaOption, IsThePageSizeByThePPDsName) {
  const PPDFile ppd = opened(mediaPPD());
  EXPECT_TRUE(isMedia(ppd.get(), "Media"));
  EXPECT_FALSE(isMedia(ppd.get(), "PageSize"));
  EXPECT_EQ(optionsOfMedia(ppd.get(), "cr79"), (Options{{"PageSize", "CR79"}}));
  EXPECT_EQ(optionsOfMedia(ppd.get(), "Custom.50x90mm"), (Options{{"PageSize", "Custom.50x90mm"}}));
}

TEST(MediaOption, IsThePageSizeByAPWGNameOnItsShortSideToo) {
  const PPDFile ppd = opened(mediaPPD());
  EXPECT_EQ(optionsOfMedia(ppd.get(), "iso_id-1_53.98x85.6mm"), (Options{{"PageSize", "CR80"}}));
  EXPECT_EQ(optionsOfMedia(ppd.get(), "custom_cr80_85.6x53.98mm"), (Options{{"PageSize", "CR80"}}));
  EXPECT_EQ(optionsOfMedia(ppd.get(), "na_mine_2.06x3.3in"), (Options{{"PageSize", "CR79"}}));
}

TEST(MediaOption, IsACustomSizeWhereThePrinterTakesThose) {
  EXPECT_EQ(optionsOfMedia(opened(mediaPPD()).get(), "custom_mine_50x90.5mm"),
            (Options{{"PageSize", "Custom.50x90.5mm"}}));
  EXPECT_THROW(optionsOfMedia(opened(mediaPPD()).get(), "iso_a4_210x297mm"), Error);
  EXPECT_THROW(optionsOfMedia(opened(test::testPPD({})).get(), "custom_mine_50x90.5mm"), Error);
}

TEST(MediaOption, NamesSourceAndTypeBesideTheSize) {
  const PPDFile ppd = opened(mediaPPD());
  EXPECT_THAT(optionsOfMedia(ppd.get(), "CR79,tray-2,pet-g"),
              ElementsAre(Option{"InputSlot", "Tray2"}, Option{"MediaType", "PET-G"},
                          Option{"PageSize", "CR79"}));
  EXPECT_EQ(optionsOfMedia(ppd.get(), "cardstock"), (Options{{"MediaType", "CardPVC"}}));
}

TEST(MediaOption, TellsThePartThatThePrinterHasNothingFor) {
  try {
    optionsOfMedia(opened(mediaPPD()).get(), "CR79,gold");
    FAIL();
  } catch (const Error& error) {
    EXPECT_STREQ(error.what(), "This printer has no card size, source or type \"gold\".");
  }
  EXPECT_THROW(optionsOfMedia(opened(mediaPPD()).get(), ""), Error);
}

TEST(MediaOption, OfThePPDItselfIsLeftAlone) {
  EXPECT_FALSE(
      isMedia(opened(test::testPPD({test::testOption("media", "Media", 2)})).get(), "media"));
}

TEST(MediaOption, IsSavedAsThePageSizeWhereThatIsNotSavedItself) {
  JobOptions job = jobOf(mediaPPD());
  EXPECT_THAT(job.markSaved({{"cardLaminate", "Both"}, {"media", "CR79"}}), IsEmpty());
  EXPECT_EQ(job.options(), (Options{{"PageSize", "CR79"}, {"cardLaminate", "Both"}}));
  EXPECT_EQ(job.conflicts().size(), 1U);

  JobOptions both = jobOf(mediaPPD());
  both.markSaved({{"media", "CR79,Tray1"}, {"PageSize", "CR80"}});
  EXPECT_EQ(both.options(), (Options{{"PageSize", "CR80"}, {"InputSlot", "Tray1"}}));
}

TEST(MediaOption, ThatWasSavedForAnotherPrinterIsLeftOutAndTold) {
  JobOptions job = jobOf(mediaPPD());
  EXPECT_THAT(job.markSaved({{"media", "iso_a4_210x297mm"}}),
              ElementsAre(HasSubstr("media=iso_a4_210x297mm")));
  EXPECT_EQ(job.options(), (Options{{"PageSize", "CR80"}}));
}

TEST(MediaOption, GivenBesideAnotherPageSizeIsRefused) {
  JobOptions job = jobOf(mediaPPD());
  for (const Options& given : {Options{{"media", "CR79"}, {"PageSize", "CR80"}},
                               Options{{"PageSize", "CR80"}, {"media", "CR79"}}}) {
    EXPECT_EQ(job.requestAll(given).message, "“Card Size” cannot be both “CR-80” and “CR-79”.");
  }
  EXPECT_TRUE(job.requestAll({{"media", "CR79"}, {"PageSize", "CR79"}}).granted);
  EXPECT_EQ(job.options(), (Options{{"PageSize", "CR79"}}));
}

TEST(MediaOption, GivenTwiceCountsOnce) {
  JobOptions job = jobOf(mediaPPD());
  EXPECT_TRUE(job.requestAll({{"media", "CR79,Tray1"}, {"media", "CR80"}}).granted);
  EXPECT_EQ(job.options(), (Options{{"PageSize", "CR80"}}));
}

TEST(MediaOption, GivenConflictsAsThePageSizeDoes) {
  JobOptions job = jobOf(mediaPPD());
  EXPECT_EQ(job.requestAll({{"media", "CR79"}, {"cardLaminate", "Both"}}).message,
            "“Card Laminate” cannot be “Both Sides” while “Card Size” is “CR-79”.");
  EXPECT_THROW(job.check({"media", "gold"}), Error);
}

}  // namespace
}  // namespace cardpanels::host
