#pragma once

namespace cardpanels::test {

/// The file that `TestOwner` owns.
inline constexpr const char* kTestFile = R"(<?xml version="1.0" encoding="UTF-8"?>
<interface>
  <object class="GtkBox" id="view">
    <property name="orientation">vertical</property>
    <child>
      <object class="GtkDropDown" id="popUp">
        <signal name="notify::selected" handler="changeOption:"/>
      </object>
    </child>
    <child>
      <object class="GtkNotebook" id="tabs">
        <property name="name">tag-7</property>
        <child>
          <object class="GtkNotebookPage">
            <property name="tab">
              <object class="GtkLabel"><property name="label">Peel</property></object>
            </property>
            <property name="child">
              <object class="GtkBox">
                <child>
                  <object class="GtkEntry" id="field">
                    <property name="tooltip-text">Left edge</property>
                  </object>
                </child>
                <child>
                  <object class="GtkLabel" id="label">
                    <property name="name">tag-3</property>
                    <property name="label">Area 1</property>
                  </object>
                </child>
              </object>
            </property>
          </object>
        </child>
      </object>
    </child>
  </object>
</interface>
)";

}  // namespace cardpanels::test
