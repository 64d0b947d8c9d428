#pragma once

#include <array>
#include <functional>
#include <memory>
#include <span>

#include "platform/NibOwner.h"
#include "platform/PopUpButton.h"
#include "platform/TabView.h"
#include "platform/TextField.h"
#include "platform/View.h"

namespace cardpanels::test {

/// Owns a file with a view, a pop-up, an entry, a label and a tab view.
class TestOwner final : public platform::NibOwner {
 public:
  std::span<const platform::Outlet> outlets() const override {
    static constexpr std::array kOutlets{
        platform::outlet<&TestOwner::view>("view"),   platform::outlet<&TestOwner::popUp>("popUp"),
        platform::outlet<&TestOwner::field>("field"), platform::outlet<&TestOwner::label>("label"),
        platform::outlet<&TestOwner::tabs>("tabs"),
    };
    return kOutlets;
  }

  std::span<const platform::Action> actions() const override {
    static constexpr std::array kActions{
        platform::action<TestOwner, &TestOwner::changeOption>("changeOption:"),
    };
    return kActions;
  }

  void changeOption(const std::shared_ptr<platform::Object>& from) {
    ++changes;
    sender = from;
    if (onChange) onChange();
  }

  bool isFilled() const { return view || popUp || field || label || tabs; }

  std::shared_ptr<platform::View> view;
  std::shared_ptr<platform::PopUpButton> popUp;
  std::shared_ptr<platform::TextField> field;
  std::shared_ptr<platform::TextField> label;
  std::shared_ptr<platform::TabView> tabs;
  int changes = 0;
  std::shared_ptr<platform::Object> sender;
  std::function<void()> onChange;
};

}  // namespace cardpanels::test
