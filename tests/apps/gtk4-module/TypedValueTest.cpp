#include <gtest/gtest.h>
#include <gtkmm/box.h>
#include <gtkmm/dropdown.h>
#include <gtkmm/entry.h>
#include <gtkmm/stringlist.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "apps/gtk-module/TypedValue.h"

namespace cardpanels::gtkmodule {
namespace {

/// An option as GTK's dialog has them: a text, and a signal when it becomes another.
class Option {
 public:
  Option() : object_(G_OBJECT(g_object_new(type(), nullptr))) {}
  ~Option() { g_object_unref(object_); }
  Option(const Option&) = delete;
  Option& operator=(const Option&) = delete;

  GObject* object() const { return object_; }
  void set(const std::string& value) { g_object_set(object_, "value", value.c_str(), nullptr); }
  std::string value() const {
    char* value = nullptr;
    g_object_get(object_, "value", &value, nullptr);
    std::string text = value == nullptr ? "" : value;
    g_free(value);
    return text;
  }

 private:
  struct Instance {
    GObject parent;
    char* value;
  };

  static GType type() {
    static const GType type = g_type_register_static_simple(
        G_TYPE_OBJECT, "TestOption", sizeof(GObjectClass),
        [](gpointer made, gpointer) {
          auto* const object = G_OBJECT_CLASS(made);
          object->set_property = [](GObject* self, guint, const GValue* value, GParamSpec*) {
            char*& own = reinterpret_cast<Instance*>(self)->value;
            if (g_strcmp0(own, g_value_get_string(value)) == 0) return;
            g_free(own);
            own = g_value_dup_string(value);
            g_signal_emit_by_name(self, "changed");
          };
          object->get_property = [](GObject* self, guint, GValue* value, GParamSpec*) {
            g_value_set_string(value, reinterpret_cast<Instance*>(self)->value);
          };
          object->finalize = [](GObject* self) {
            g_free(reinterpret_cast<Instance*>(self)->value);
            static_cast<GObjectClass*>(g_type_class_peek(G_TYPE_OBJECT))->finalize(self);
          };
          g_object_class_install_property(
              object, 1, g_param_spec_string("value", "", "", nullptr, G_PARAM_READWRITE));
          g_signal_new("changed", G_TYPE_FROM_CLASS(made), G_SIGNAL_RUN_LAST, 0, nullptr, nullptr,
                       nullptr, G_TYPE_NONE, 0);
        },
        sizeof(Instance), nullptr, G_TYPE_FLAG_NONE);
    return type;
  }

  GObject* object_;
};

/// A widget that shows an option and loses what is typed as that of GTK 4.18 does.
class OptionWidget : public Gtk::Box {
 public:
  explicit OptionWidget(Option& option) : option_(option) {
    append(list_);
    append(field_);
    list_.property_selected().signal_changed().connect([this] { choiceSelected(); });
    field_.signal_changed().connect([this] { typed(); });
    g_signal_connect_swapped(option_.object(), "changed",
                             G_CALLBACK(+[](OptionWidget* self) { self->show(); }), this);
  }
  ~OptionWidget() override { g_signal_handlers_disconnect_by_data(option_.object(), this); }
  OptionWidget(const OptionWidget&) = delete;
  OptionWidget& operator=(const OptionWidget&) = delete;

  Gtk::Entry& field() { return field_; }
  Gtk::DropDown& list() { return list_; }
  GtkWidget* widget() { return Gtk::Widget::gobj(); }

 private:
  void choiceSelected() {
    if (list_.get_selected() < choices_.size()) field_.set_text(choices_[list_.get_selected()]);
  }

  void typed() {
    writes_ = true;
    option_.set(field_.get_text());
    writes_ = false;
  }

  void show() {
    if (writes_) return;
    const auto choice = std::find(choices_.begin(), choices_.end(), Glib::ustring(option_.value()));
    if (choice != choices_.end()) {
      list_.set_selected(static_cast<guint>(choice - choices_.begin()));
    } else {
      field_.set_text("");
      field_.set_text(option_.value());
    }
  }

  Option& option_;
  std::vector<Glib::ustring> choices_{"None", "WholeCard"};
  Gtk::DropDown list_{Gtk::StringList::create(choices_)};
  Gtk::Entry field_;
  bool writes_ = false;
};

class TypedValueTest : public testing::Test {
 protected:
  Option option_;
  OptionWidget shown_{option_};
};

TEST_F(TypedValueTest, IsKeptWhereAnotherWasTypedBefore) {
  shown_.field().set_text("Custom.1in");
  ASSERT_EQ(option_.value(), "Custom.1in");
  TypedValue typed(shown_.widget());
  typed.set(option_.object(), "Custom.2in");
  EXPECT_EQ(option_.value(), "Custom.2in");
  EXPECT_EQ(shown_.field().get_text(), "Custom.2in");
}

TEST_F(TypedValueTest, MakesWayForAChoice) {
  for (const char* choice : {"None", "WholeCard", "None"}) {
    shown_.field().set_text("Custom.1in");
    TypedValue(shown_.widget()).set(option_.object(), choice);
    EXPECT_EQ(option_.value(), choice);
    EXPECT_EQ(shown_.field().get_text(), choice);
  }
}

TEST_F(TypedValueTest, IsForgottenWhereItWasLost) {
  shown_.field().set_text("what was freed");
  TypedValue(shown_.widget()).forgetLost(option_.object());
  EXPECT_EQ(option_.value(), "");
  EXPECT_EQ(shown_.field().get_text(), "");
}

TEST_F(TypedValueTest, IsForgottenWhereNothingIsSelected) {
  shown_.list().set_selected(GTK_INVALID_LIST_POSITION);
  shown_.field().set_text("what was freed");
  TypedValue(shown_.widget()).forgetLost(option_.object());
  EXPECT_EQ(shown_.field().get_text(), "");
}

TEST_F(TypedValueTest, IsForgottenTheFirstTimeOnly) {
  TypedValue(shown_.widget()).forgetLost(option_.object());
  shown_.field().set_text("Custom.1in");
  TypedValue(shown_.widget()).forgetLost(option_.object());
  EXPECT_EQ(option_.value(), "Custom.1in");
}

TEST_F(TypedValueTest, AChoiceThatIsShownIsNotForgotten) {
  option_.set("WholeCard");
  ASSERT_EQ(shown_.field().get_text(), "WholeCard");
  TypedValue(shown_.widget()).forgetLost(option_.object());
  EXPECT_EQ(option_.value(), "WholeCard");
  EXPECT_EQ(shown_.field().get_text(), "WholeCard");
}

TEST_F(TypedValueTest, AFieldWithoutAListIsLeftAlone) {
  shown_.remove(shown_.list());
  shown_.field().set_text("Custom.1in");
  TypedValue typed(shown_.widget());
  typed.forgetLost(option_.object());
  EXPECT_EQ(option_.value(), "Custom.1in");
}

TEST_F(TypedValueTest, AListWithoutAFieldIsLeftAlone) {
  shown_.remove(shown_.field());
  TypedValue typed(shown_.widget());
  typed.forgetLost(option_.object());
  typed.set(option_.object(), "WholeCard");
  EXPECT_EQ(option_.value(), "WholeCard");
}

TEST(TypedValueWithoutAWidget, IsSet) {
  const Option option;
  TypedValue typed(nullptr);
  typed.forgetLost(option.object());
  typed.set(option.object(), "Custom.2in");
  EXPECT_EQ(option.value(), "Custom.2in");
}

TEST(TypedValueWithoutAWidget, IsSetWhenTheWidgetHasGone) {
  Option option;
  auto widget = std::make_unique<OptionWidget>(option);
  TypedValue typed(widget->widget());
  widget.reset();
  typed.set(option.object(), "Custom.2in");
  EXPECT_EQ(option.value(), "Custom.2in");
}

}  // namespace
}  // namespace cardpanels::gtkmodule
