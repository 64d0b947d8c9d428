#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include "dialog/Captions.h"
#include "host/PPDFile.h"

namespace cardpanels::dialog {
namespace {

using testing::Eq;
using testing::Optional;

TEST(Captions, AreThePPDsTitles) {
  const host::JobOptions job(host::openPPD(CARDPANELS_SOURCE_DIR "/resources/ppd/card-single.ppd"));
  const auto captions = captionsOf(job, {"_Print"});
  EXPECT_THAT(titleByName(captions, "title-frontRibbon"), Optional(Eq("Front Ribbon")));
  EXPECT_THAT(titleByName(captions, "title-frontResinInclude1-X"),
              Optional(Eq("Front Resin Area 1, X")));
  EXPECT_THAT(titleByName(captions, "title-frontResinExclude3-Height"),
              Optional(Eq("Front No-Resin Area 3, height")));
  EXPECT_THAT(captions.besides, testing::Contains("_Print"));
}

TEST(Captions, StayTheFilesWhereThePPDHasNone) {
  const host::JobOptions job(host::openPPD(CARDPANELS_SOURCE_DIR "/resources/ppd/card-single.ppd"));
  const auto captions = captionsOf(job, {});
  EXPECT_EQ(titleByName(captions, "title-backRibbon"), std::nullopt);
  EXPECT_EQ(titleByName(captions, "title-backResinInclude1-X"), std::nullopt);
  EXPECT_EQ(titleByName(captions, "tag-3"), std::nullopt);
  EXPECT_EQ(titleByName({}, "title-frontRibbon"), std::nullopt);
  ppd_option_t* const option = ppdFindOption(job.ppd(), "frontRibbon");
  std::strcpy(option->text, option->keyword);  // what libcups does
  EXPECT_EQ(titleByName(captions, "title-frontRibbon"), std::nullopt);
}

TEST(Captions, AreToldByTheirNames) {
  EXPECT_THAT(optionOfCaption("title-frontRibbon"), Optional(Eq("frontRibbon")));
  EXPECT_EQ(optionOfCaption("tag-3"), std::nullopt);
}

}  // namespace
}  // namespace cardpanels::dialog
