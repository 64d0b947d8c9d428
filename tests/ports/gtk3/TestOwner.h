#pragma once

#include "tests/support/TestOwner.h"

namespace cardpanels::test {

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
