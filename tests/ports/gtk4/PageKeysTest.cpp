#include <gdk/gdkkeysyms.h>
#include <gtest/gtest.h>
#include <gtkmm/box.h>
#include <gtkmm/entry.h>
#include <gtkmm/notebook.h>
#include <gtkmm/window.h>

#include <string>

#include "ports/gtk4/PageKeys.h"
#include "tests/ports/gtk4/VirtualDisplay.h"

namespace cardpanels::gtk4 {
namespace {

/// A window with a notebook, whose page has a field, and another field beside it.
class PageKeysTest : public testing::Test {
 protected:
  void SetUp() override {
    page_.append(inside_);
    notebook_.append_page(page_, "Card");
    all_.append(notebook_);
    all_.append(outside_);
    window_.set_child(all_);
    window_.set_visible();
    ASSERT_TRUE(test::handleEventsUntil([this] { return page_.get_mapped(); }));
  }

  /// What a key does in the window, "" for nothing.
  std::string press(guint key, guint modifiers = 0) {
    done_.clear();
    bool isTakenAtAll = false;
    GListModel* const controllers = gtk_widget_observe_controllers(GTK_WIDGET(window_.gobj()));
    for (guint i = 0; i < g_list_model_get_n_items(controllers); ++i) {
      auto* const each = static_cast<GtkEventController*>(g_list_model_get_item(controllers, i));
      if (GTK_IS_EVENT_CONTROLLER_KEY(each) &&
          gtk_event_controller_get_propagation_phase(each) == GTK_PHASE_CAPTURE) {
        gboolean isTaken = FALSE;
        g_signal_emit_by_name(each, "key-pressed", key, 0, modifiers, &isTaken);
        isTakenAtAll = isTakenAtAll || isTaken != FALSE;
      }
      g_object_unref(each);
    }
    g_object_unref(controllers);
    EXPECT_EQ(isTakenAtAll, !done_.empty());
    return done_;
  }

  std::string done_;
  Gtk::Box page_;
  Gtk::Entry inside_;
  Gtk::Entry outside_;
  Gtk::Notebook notebook_;
  Gtk::Box all_;
  Gtk::Window window_;
  PageKeys keys_{page_,
                 {.previous = [this] { done_ += "previous"; },
                  .next = [this] { done_ += "next"; },
                  .help = [this] { done_ += "help"; }}};
};

TEST_F(PageKeysTest, AreThePages) {
  inside_.grab_focus();
  EXPECT_EQ(press(GDK_KEY_Page_Up, GDK_CONTROL_MASK), "previous");
  EXPECT_EQ(press(GDK_KEY_KP_Page_Up, GDK_CONTROL_MASK), "previous");
  EXPECT_EQ(press(GDK_KEY_Page_Down, GDK_CONTROL_MASK), "next");
  EXPECT_EQ(press(GDK_KEY_KP_Page_Down, GDK_CONTROL_MASK | GDK_LOCK_MASK), "next");
  EXPECT_EQ(press(GDK_KEY_F1), "help");
  EXPECT_EQ(press(GDK_KEY_Page_Up), "");
  EXPECT_EQ(press(GDK_KEY_Page_Down), "");
  EXPECT_EQ(press(GDK_KEY_Page_Down, GDK_CONTROL_MASK | GDK_SHIFT_MASK), "");
  EXPECT_EQ(press(GDK_KEY_F1, GDK_SHIFT_MASK), "");
  EXPECT_EQ(press(GDK_KEY_a, GDK_CONTROL_MASK), "");
}

TEST_F(PageKeysTest, AreTheNotebooksWhereItHasTheFocus) {
  notebook_.grab_focus();
  ASSERT_FALSE(inside_.has_focus() || inside_.is_focus());
  ASSERT_NE(window_.get_focus(), nullptr);
  EXPECT_EQ(press(GDK_KEY_Page_Up, GDK_CONTROL_MASK), "");
  EXPECT_EQ(press(GDK_KEY_Page_Down, GDK_CONTROL_MASK), "");
  EXPECT_EQ(press(GDK_KEY_F1), "help");
  outside_.grab_focus();
  EXPECT_EQ(press(GDK_KEY_Page_Down, GDK_CONTROL_MASK), "next");
  window_.unset_focus();
  EXPECT_EQ(press(GDK_KEY_Page_Up, GDK_CONTROL_MASK), "previous");
}

TEST_F(PageKeysTest, GoWithThePage) {
  EXPECT_EQ(press(GDK_KEY_F1), "help");
  page_.set_visible(false);
  ASSERT_TRUE(test::handleEventsUntil([this] { return !page_.get_mapped(); }));
  EXPECT_EQ(press(GDK_KEY_F1), "");
}

}  // namespace
}  // namespace cardpanels::gtk4
