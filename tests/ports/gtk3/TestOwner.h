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

/// The file that `TestOwner` owns.
inline constexpr const char* kTestFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<interface>
  <object class="GtkBox" id="view">
    <property name="visible">True</property>
    <property name="orientation">vertical</property>
    <child>
      <object class="GtkComboBoxText" id="popUp">
        <property name="visible">True</property>
        <signal name="changed" handler="changeOption:"/>
      </object>
    </child>
    <child>
      <object class="GtkNotebook" id="tabs">
        <property name="visible">True</property>
        <property name="name">tag-7</property>
        <child>
          <object class="GtkBox">
            <property name="visible">True</property>
            <child>
              <object class="GtkEntry" id="field">
                <property name="visible">True</property>
                <property name="tooltip-text">Left edge</property>
              </object>
            </child>
            <child>
              <object class="GtkLabel" id="label">
                <property name="visible">True</property>
                <property name="name">tag-3</property>
                <property name="label">Area 1</property>
              </object>
            </child>
          </object>
        </child>
        <child type="tab">
          <object class="GtkLabel"><property name="label">Peel</property></object>
        </child>
      </object>
    </child>
  </object>
</interface>
)";

}  // namespace cardpanels::test
