#include <cups/ppd.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "plugin/ORBPDEPlugIn.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

struct Host final : platform::CallbackObject {
  explicit Host(const std::string& path) : ppd(ppdOpenFile(path.c_str())) {}
  ~Host() override { ppdClose(ppd); }
  ppd_file_t* ppdFile() override { return ppd; }
  std::string_view className() const override { return "Host"; }
  ppd_file_t* ppd;
};

TEST(PlugIn, AModelNumberWithoutValueLogsNULL) {
  const test::TemporaryFolder folder;
  const auto host = std::make_shared<Host>(
      folder.write("test.ppd", test::testPPD({}, "*cupsModelNumber spec/Model: 42\n")));
  ppd_attr_t* attribute = ppdFindAttr(host->ppd, "cupsModelNumber", nullptr);
  ASSERT_NE(attribute, nullptr);
  char* const value = std::exchange(attribute->value, nullptr);
  test::RecordedLog log;
  ORBPDEPlugIn plugIn;
  plugIn.PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, host);
  attribute->value = value;
  const auto lines = log.lines();
  EXPECT_TRUE(std::any_of(lines.begin(), lines.end(), [](const std::string& line) {
    return line.ends_with(" ATTR: [cupsModelNumber][spec][Model][NULL]");
  }));
}

TEST(PlugIn, NoPPDIsLogged) {
  test::RecordedLog log;
  ORBPDEPlugIn plugIn;
  plugIn.PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, nullptr);
  const auto lines = log.lines();
  EXPECT_TRUE(std::any_of(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.ends_with(" PPD: nil"); }));
}

}  // namespace
}  // namespace cardpanels
