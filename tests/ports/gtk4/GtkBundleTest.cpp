#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "ports/gtk4/AccessibleName.h"
#include "ports/gtk4/GtkBundle.h"
#include "ports/gtk4/WidgetView.h"
#include "tests/ports/gtk4/TestFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestOwner.h"

namespace cardpanels::gtk4 {
namespace {

using platform::Text;
using test::TestOwner;
using testing::AllOf;
using testing::HasSubstr;
using testing::Optional;

/// `text` with `from`, which must be in it, replaced by `to`.
std::string with(std::string text, const std::string& from, const std::string& to) {
  return text.replace(text.find(from), from.size(), to);
}

class GtkBundleTest : public testing::Test {
 protected:
  std::shared_ptr<platform::View> load(const std::string& content) {
    folder_.write("resources/gtk4/Test.ui", content);
    return bundle_->loadNibNamed_owner("Test", owner_);
  }

  /// Expects that loading fails with a reason that names the file and `reason`.
  void expectFailure(const std::string& content, const std::string& reason) {
    EXPECT_FALSE(load(content));
    EXPECT_THAT(bundle_->loadError(),
                Optional(AllOf(HasSubstr("/resources/gtk4/Test.ui"), HasSubstr(reason))));
    EXPECT_FALSE(owner_->isFilled());
  }

  test::TemporaryFolder folder_;
  std::shared_ptr<TestOwner> owner_ = std::make_shared<TestOwner>();
  std::shared_ptr<GtkBundle> bundle_ = std::make_shared<GtkBundle>(folder_.path());
};

TEST_F(GtkBundleTest, LoadingFillsTheOutletsAndAnswersTheTopView) {
  const auto view = load(test::kTestFile);
  ASSERT_TRUE(view);
  EXPECT_EQ(view, owner_->view);
  EXPECT_TRUE(owner_->popUp);
  EXPECT_TRUE(owner_->field);
  EXPECT_TRUE(owner_->label);
  EXPECT_TRUE(owner_->tabs);
  EXPECT_FALSE(bundle_->loadError());
}

TEST_F(GtkBundleTest, TheTopViewOwnsTheOthers) {
  auto view = load(test::kTestFile);
  const std::weak_ptr<platform::View> popUp = owner_->popUp;
  owner_ = std::make_shared<TestOwner>();
  EXPECT_FALSE(popUp.expired());
  view.reset();
  EXPECT_TRUE(popUp.expired());
}

TEST_F(GtkBundleTest, AMissingFileIsNamed) {
  EXPECT_FALSE(bundle_->loadNibNamed_owner("Missing", owner_));
  EXPECT_THAT(bundle_->loadError(), Optional(HasSubstr("/resources/gtk4/Missing.ui")));
}

TEST_F(GtkBundleTest, AFolderIsNoFile) {
  folder_.write("resources/gtk4/Test.ui/file", "");
  EXPECT_FALSE(bundle_->loadNibNamed_owner("Test", owner_));
  EXPECT_THAT(bundle_->loadError(), Optional(HasSubstr("/resources/gtk4/Test.ui")));
}

TEST_F(GtkBundleTest, AMalformedFileIsNamedWithItsLine) {
  expectFailure("<interface>\n<object class=\"GtkBox\">\n</interface>\n", "line 3");
}

TEST_F(GtkBundleTest, AnEmptyFileIsNamed) { expectFailure("", ""); }

TEST_F(GtkBundleTest, AnUnknownClassIsNamed) {
  expectFailure(with(test::kTestFile, "GtkDropDown", "GtkSurprise"), "GtkSurprise");
}

TEST_F(GtkBundleTest, AFileWithoutViewsFails) {
  expectFailure("<interface></interface>", "there is no view");
}

TEST_F(GtkBundleTest, TwoTopViewsFail) {
  expectFailure(with(test::kTestFile, "</interface>", "<object class=\"GtkBox\"/></interface>"),
                "more than one view");
}

TEST_F(GtkBundleTest, AWindowIsNoView) {
  expectFailure("<interface><object class=\"GtkWindow\" id=\"view\"/></interface>", "a window");
}

TEST_F(GtkBundleTest, AnIdThatIsNoOutletFails) {
  expectFailure(with(test::kTestFile, "<object class=\"GtkLabel\">",
                     "<object class=\"GtkLabel\" id=\"stranger\">"),
                "\"stranger\"");
}

TEST_F(GtkBundleTest, AnIdOfSomethingThatIsNoViewFails) {
  expectFailure(
      with(test::kTestFile, "<interface>", "<interface><object class=\"GtkAdjustment\" id=\"x\"/>"),
      "\"x\" is no view");
}

TEST_F(GtkBundleTest, AnOutletThatTheFileLacksFails) {
  expectFailure(with(test::kTestFile, " id=\"label\"", ""), "\"label\"");
}

TEST_F(GtkBundleTest, AnActionThatTheFileLacksFails) {
  expectFailure(
      with(test::kTestFile, "<signal name=\"notify::selected\" handler=\"changeOption:\"/>", ""),
      "\"changeOption:\"");
}

TEST_F(GtkBundleTest, AHandlerThatIsNoActionFails) {
  expectFailure(with(test::kTestFile, "changeOption:", "changeOption"), "\"changeOption\"");
}

TEST_F(GtkBundleTest, ASignalThatTheControlLacksFails) {
  expectFailure(with(test::kTestFile, "name=\"notify::selected\"", "name=\"exploded\""),
                "exploded");
}

TEST_F(GtkBundleTest, AnOutletOfAnotherKindFails) {
  expectFailure(with(test::kTestFile, "GtkEntry", "GtkCheckButton"), "\"field\"");
}

TEST_F(GtkBundleTest, WithoutAnOwnerNothingLoads) {
  folder_.write("resources/gtk4/Test.ui", test::kTestFile);
  EXPECT_FALSE(bundle_->loadNibNamed_owner("Test", nullptr));
  EXPECT_TRUE(bundle_->loadError());
}

TEST_F(GtkBundleTest, ASuccessForgetsTheErrorBefore) {
  load("");
  EXPECT_TRUE(load(test::kTestFile));
  EXPECT_FALSE(bundle_->loadError());
}

TEST_F(GtkBundleTest, ATooltipIsTheNameThatIsTold) {
  ASSERT_TRUE(load(test::kTestFile));
  const auto& field = dynamic_cast<WidgetView&>(*owner_->field).widget();
  EXPECT_EQ(accessibleName(field), "Left edge");
  EXPECT_EQ(field.get_tooltip_text(), "");
}

}  // namespace
}  // namespace cardpanels::gtk4
