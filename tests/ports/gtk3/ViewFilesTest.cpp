#include <cups/ppd.h>
#include <gtest/gtest.h>
#include <gtkmm/comboboxtext.h>

#include <memory>

#include "panels/ThermalLaminatePDE.h"
#include "platform/CallbackObject.h"
#include "ports/gtk3/GtkBundle.h"
#include "ports/gtk3/WidgetView.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::gtk3 {
namespace {

class TestHost final : public platform::CallbackObject {
 public:
  explicit TestHost(const std::string& ppd) : ppd_(ppdOpenFile(ppd.c_str())) {}
  ~TestHost() override { ppdClose(ppd_); }
  ppd_file_t* ppdFile() override { return ppd_; }
  std::string className() const override { return "TestHost"; }

 private:
  ppd_file_t* ppd_;
};

/// The panels with the user-interface files that are shipped.
class ViewFilesTest : public testing::Test {
 protected:
  ViewFilesTest()
      : host_(std::make_shared<TestHost>(
            folder_.write("card.ppd", test::testPPD({test::laminateOption()})))),
        bundle_(std::make_shared<GtkBundle>(CARDPANELS_SOURCE_DIR)) {}

  test::RecordedLog log_;
  test::TemporaryFolder folder_;
  std::shared_ptr<TestHost> host_;
  std::shared_ptr<GtkBundle> bundle_;
};

TEST_F(ViewFilesTest, TheLaminatePanelFindsItsControls) {
  const auto panel = ThermalLaminatePDE::initWithCallback_andBundle(host_, bundle_);
  ASSERT_TRUE(panel);
  EXPECT_TRUE(panel->panelView()) << bundle_->loadError().value_or("");
  EXPECT_TRUE(panel->frontLaminatePopUp);
}

TEST_F(ViewFilesTest, TheLaminatePopUpIsNamedByItsCaption) {
  const auto panel = ThermalLaminatePDE::initWithCallback_andBundle(host_, bundle_);
  ASSERT_TRUE(panel && panel->panelView());
  auto& comboBox = dynamic_cast<WidgetView&>(*panel->frontLaminatePopUp).widget();
  EXPECT_EQ(comboBox.get_accessible()->get_name(), "Laminate");
  EXPECT_EQ(comboBox.list_mnemonic_labels().size(), 1U);
}

}  // namespace
}  // namespace cardpanels::gtk3
