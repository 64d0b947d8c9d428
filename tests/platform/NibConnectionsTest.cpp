#include <gtest/gtest.h>

#include <array>

#include "platform/NibConnections.h"
#include "platform/TabView.h"

namespace cardpanels::platform {
namespace {

struct PlainView final : View {
  void setHidden(bool /*hidden*/) override {}
  std::shared_ptr<View> viewWithTag(std::int64_t /*tag*/) override { return nullptr; }
  std::string_view className() const override { return "PlainView"; }
};

struct Tabs final : TabView {
  void setHidden(bool /*hidden*/) override {}
  std::shared_ptr<View> viewWithTag(std::int64_t /*tag*/) override { return nullptr; }
  std::string_view className() const override { return "Tabs"; }
};

struct Owner final : NibOwner {
  std::shared_ptr<View> view;
  std::weak_ptr<TabView> tabs;
  int changes = 0;

  void change(const std::shared_ptr<Object>& /*sender*/) { ++changes; }

  std::span<const Outlet> outlets() const override {
    static constexpr std::array kOutlets{outlet<&Owner::view>("view"),
                                         outlet<&Owner::tabs>("tabs")};
    return kOutlets;
  }
  std::span<const Action> actions() const override {
    static constexpr std::array kActions{action<Owner, &Owner::change>("change:")};
    return kActions;
  }
};

class Connecting : public testing::Test {
 protected:
  Owner owner;
  std::shared_ptr<PlainView> view = std::make_shared<PlainView>();
  std::shared_ptr<Tabs> tabs = std::make_shared<Tabs>();
  NibContents contents{"panel.ui", {{"view", view}, {"tabs", tabs}}, {"change:"}};
};

TEST_F(Connecting, FillsTheOutlets) {
  EXPECT_EQ(connectNib(owner, contents), std::nullopt);
  EXPECT_EQ(owner.view, view);
  EXPECT_EQ(owner.tabs.lock(), tabs);
}

TEST_F(Connecting, AWeakOutletKeepsNothingAlive) {
  connectNib(owner, contents);
  contents.viewsById.clear();
  tabs.reset();
  EXPECT_EQ(owner.outletNamed("tabs")->view(owner), nullptr);
}

TEST_F(Connecting, NamesAnIdThatNobodyOwns) {
  contents.viewsById["stray"] = view;
  EXPECT_EQ(connectNib(owner, contents), "panel.ui: no outlet has the id \"stray\"");
  EXPECT_EQ(owner.view, nullptr);
}

TEST_F(Connecting, NamesAnOutletThatTheFileLacks) {
  contents.viewsById.erase("tabs");
  EXPECT_EQ(connectNib(owner, contents), "panel.ui: nothing has the id of the outlet \"tabs\"");
}

TEST_F(Connecting, NamesAHandlerThatIsNoAction) {
  contents.handlers = {"change:", "destroy:"};
  EXPECT_EQ(connectNib(owner, contents), "panel.ui: no action has the name \"destroy:\"");
}

TEST_F(Connecting, NamesAnActionThatNothingFires) {
  contents.handlers.clear();
  EXPECT_EQ(connectNib(owner, contents),
            "panel.ui: no signal has the action \"change:\" as its handler");
}

TEST_F(Connecting, NamesAViewOfTheWrongKindAndFillsNothing) {
  contents.viewsById["tabs"] = view;
  EXPECT_EQ(connectNib(owner, contents), "panel.ui: the outlet \"tabs\" does not take a PlainView");
  EXPECT_EQ(owner.view, nullptr);
}

TEST(ActionTarget, FiresAtItsOwner) {
  const auto owner = std::make_shared<Owner>();
  ActionTarget(owner, *owner->actionNamed("change:")).fire(nullptr);
  EXPECT_EQ(owner->changes, 1);
}

TEST(ActionTarget, KeepsNoOwnerAliveAndFiresAtNobody) {
  auto owner = std::make_shared<Owner>();
  const ActionTarget target(owner, *owner->actionNamed("change:"));
  const std::weak_ptr<Owner> gone = owner;
  owner.reset();
  EXPECT_TRUE(gone.expired());
  target.fire(nullptr);
  ActionTarget().fire(nullptr);
}

}  // namespace
}  // namespace cardpanels::platform
