#include <cups/ppd.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "host/Error.h"
#include "host/PlugInLibrary.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/PanelDriver.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels {
namespace {

using test::laminateOption;
using test::PanelDriver;
using test::testPPD;

constexpr const char* kModel = "*cupsModelNumber: 42\n";

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(PlugIn, TheTypeInLowerCaseYieldsAnEmptyArray) {
  PanelDriver driver(testPPD({laminateOption()}));
  EXPECT_EQ(driver.run("panels bdb091f4-e57f-11d3-b5cc-0050e4603277"),
            R"(> panels bdb091f4-e57f-11d3-b5cc-0050e4603277
| BEGIN self(<ORBPDEPlugIn: 0x1>) initWithBundle:(<Bundle: 0x2>, 0x2)
| END self(<ORBPDEPlugIn: 0x1>) initWithBundle:=BOOL(YES)
| BEGIN self(<ORBPDEPlugIn: 0x1>) PDEPanelsForType:(bdb091f4-e57f-11d3-b5cc-0050e4603277) withHostInfo:(<HostCallback: 0x3>)
| END self(<ORBPDEPlugIn: 0x1>) PDEPanelsForType:withHostInfo:=NSArray(())
= ()
)");
}

TEST(PlugIn, AnotherLibraryIsToldByItsPathAndWhatItLacks) {
  Dl_info other{};
  ASSERT_NE(dladdr(reinterpret_cast<const void*>(&ppdClose), &other), 0);
  const test::TemporaryFolder folder;
  const std::filesystem::path library = folder.path() / "cardpanels.so";
  std::filesystem::create_symlink(std::filesystem::canonical(other.dli_fname), library);
  try {
    host::loadPlugIn(folder.path().string());
    FAIL() << "it was loaded";
  } catch (const host::Error& error) {
    EXPECT_EQ(error.what(),
              library.string() + ": This is no panel plug-in: it has no cardpanelsCreatePlugIn.");
  }
}

TEST(PlugIn, NoTypeYieldsAnEmptyArray) {
  PanelDriver driver(testPPD({laminateOption()}));
  EXPECT_EQ(driver.result("panels nil"), "()");
}

TEST(PlugIn, APPDWithoutAnyOptionYieldsNilAfterTryingEveryPanel) {
  PanelDriver driver(testPPD({}));
  const std::string text = driver.run("panels");
  std::string::size_type at = 0;
  for (const char* panel : {"RibbonPanelsPDE", "UltravioletPanelPDE", "PeelOffPanelPDE",
                            "ThermalLaminatePDE", "CardHandlingPDE"}) {
    at = text.find(
        "|     LOG self(<ORBPDEPlugIn: 0x1>) Creating PDE of type "
        "kPrinterModuleTypeIDStr(BDB091F4-E57F-11D3-B5CC-0050E4603277) " +
            std::string(panel) + " (0x0)\n",
        at);
    ASSERT_NE(at, std::string::npos) << panel << " in " << text;
  }
  EXPECT_TRUE(text.ends_with(
      "| END self(<ORBPDEPlugIn: 0x1>) PDEPanelsForType:withHostInfo:=NSArray((null))\n= nil\n"))
      << text;
}

TEST(PlugIn, APPDWithOnlyTheLaminateOptionYieldsThatPanelAlone) {
  PanelDriver driver(testPPD({laminateOption()}));
  EXPECT_EQ(driver.result("panels"), "(ThermalLaminatePDE)");
}

TEST(PlugIn, APPDWithoutModelNumberLogsSo) {
  PanelDriver driver(testPPD({laminateOption()}));
  EXPECT_TRUE(contains(driver.trace("panels"), "    LOG self(<ORBPDEPlugIn: 0x1>) ATTR: nil\n"));
}

TEST(PlugIn, TheModelNumberIsLoggedWithItsFourFields) {
  PanelDriver driver(testPPD({laminateOption()}, kModel));
  EXPECT_TRUE(contains(driver.trace("panels"), "ATTR: [cupsModelNumber][][][42]\n"));
}

TEST(PlugIn, ASecondCallAnswersANewArrayOfNewPanels) {
  PanelDriver driver(testPPD({laminateOption()}));
  const std::string first = driver.trace("panels");
  const std::string second = driver.trace("panels");
  EXPECT_FALSE(contains(second, "initWithBundle:"));
  EXPECT_TRUE(contains(second, "ThermalLaminatePDE (0x"));
  EXPECT_EQ(driver.result("panels"), "(ThermalLaminatePDE)");
}

/// A host of its own, to see what the factory keeps.
struct Host final : platform::CallbackObject {
  ppd_file_t* ppd = nullptr;
  ppd_file_t* ppdFile() override { return ppd; }
  std::string_view className() const override { return "Host"; }
};

TEST(PlugIn, ReleasesTheFirstCallsArrayAtTheSecond) {
  const auto plugIn = host::loadPlugIn(test::builtBundle());
  plugIn->initWithBundle(nullptr);
  const auto host = std::make_shared<Host>();
  const std::weak_ptr<platform::PanelArray> first =
      plugIn->PDEPanelsForType_withHostInfo("another type", host);
  EXPECT_FALSE(first.expired());
  plugIn->PDEPanelsForType_withHostInfo("another type", host);
  EXPECT_TRUE(first.expired());
}

TEST(PlugIn, WorksWithoutBundleHostAndPPD) {
  const auto plugIn = host::loadPlugIn(test::builtBundle());
  EXPECT_TRUE(plugIn->initWithBundle(nullptr));
  EXPECT_EQ(plugIn->PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, nullptr), nullptr);
  EXPECT_EQ(
      plugIn->PDEPanelsForType_withHostInfo(platform::kPrinterModuleType, std::make_shared<Host>()),
      nullptr);
}

TEST(PlugIn, ABundleThatIsNotThereIsNamed) {
  try {
    host::loadPlugIn("/nowhere");
    FAIL();
  } catch (const std::exception& error) {
    EXPECT_TRUE(contains(error.what(), "/nowhere/cardpanels.so")) << error.what();
  }
}

}  // namespace
}  // namespace cardpanels
