#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "dialog/PanelHelp.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::dialog {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;

/// The panels of a printer with everything.
class PanelHelp : public testing::Test {
 protected:
  explicit PanelHelp(const std::string& path = test::duplexPPD()) : job_(host::openPPD(path)) {}

  Paragraphs help(std::size_t panel) { return panelHelp(*panels_.panels()[panel], job_.ppd()); }

 private:
  test::RecordedLog log_;
  host::JobOptions job_;
  host::PanelHost panels_{test::builtBundle(),
                          std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job_};
};

TEST_F(PanelHelp, IsOfEachPanelsOwnOptions) {
  EXPECT_THAT(help(0), Contains(HasSubstr("ribbon")));
  EXPECT_THAT(help(1), Contains(HasSubstr("ultraviolet")));
  EXPECT_THAT(help(2), Contains(HasSubstr("free of film")));
  EXPECT_THAT(help(3), Contains(HasSubstr("laminate")));
  EXPECT_THAT(help(4), Contains(HasSubstr("Rotation")));
}

TEST_F(PanelHelp, NamesTheChoicesThatShowFieldsAndTheirUnits) {
  EXPECT_THAT(help(0), Contains(AllOf(HasSubstr("“Color and Black Resin (YMCK)”"),
                                      HasSubstr("“Defined Areas”"))));
  EXPECT_THAT(help(2), Contains(HasSubstr("“Defined Areas”")));
  for (const std::size_t panel : {0U, 2U}) {
    EXPECT_THAT(help(panel), Contains(HasSubstr("in, cm, mm, px")));
    EXPECT_THAT(help(panel), Contains(HasSubstr("top left corner")));
  }
  EXPECT_THAT(help(3), Not(Contains(HasSubstr("corner"))));
}

/// The same where a PPD counts from the bottom.
class PanelHelpFromTheBottom : public PanelHelp {
 protected:
  PanelHelpFromTheBottom() : PanelHelp(changed()) {}

 private:
  static std::string changed() {
    static const test::TemporaryFolder folder;
    std::stringstream text;
    text << std::ifstream(test::duplexPPD()).rdbuf();
    std::string changed = text.str();
    changed.replace(changed.find("TopLeft"), std::string("TopLeft").size(), "BottomLeft");
    return folder.write("bottom.ppd", changed);
  }
};

TEST_F(PanelHelpFromTheBottom, SaysWhere) {
  EXPECT_THAT(help(0), Contains(HasSubstr("bottom left corner")));
  EXPECT_THAT(help(0), Not(Contains(HasSubstr("top left corner"))));
}

}  // namespace
}  // namespace cardpanels::dialog
