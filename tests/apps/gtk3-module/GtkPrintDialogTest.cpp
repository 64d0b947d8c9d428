#include <gtest/gtest.h>

#include <memory>

#include "apps/gtk3-module/GtkPrintDialog.h"
#include "host/JobOptions.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/gtk3/GtkBundle.h"
#include "tests/apps/gtk-module/UnixPrintDialogs.h"
#include "tests/support/BuiltFiles.h"

namespace cardpanels::gtk3module {
namespace {

/// The page for cards in GTK 3's dialog, on the sample printer.
class GtkPrintDialogTest : public gtkmodule::UnixPrintDialogs {
 protected:
  void SetUp() override {
    UnixPrintDialogs::SetUp();
    page_ = std::make_unique<GtkPrintDialog>(native());
  }
  void TearDown() override {
    page_.reset();
    UnixPrintDialogs::TearDown();
  }

  GtkNotebook* tabs() { return GTK_NOTEBOOK(named("notebook")); }

  /// The page, which GTK makes the third.
  GtkWidget* child() { return gtk_notebook_get_nth_page(tabs(), 2); }
  GtkWidget* tab() { return gtk_notebook_get_tab_label(tabs(), child()); }

  /// What the page has in it, as the page is seen.
  GtkWidget* content() {
    GList* const all = gtk_container_get_children(GTK_CONTAINER(child()));
    EXPECT_EQ(g_list_length(all), 1U);
    auto* const first = GTK_WIDGET(all->data);
    g_list_free(all);
    gtk_notebook_set_current_page(tabs(), 2);
    test::handleEventsUntil([first] { return gtk_widget_get_mapped(first) != FALSE; });
    return first;
  }

  int border() { return int(gtk_container_get_border_width(GTK_CONTAINER(child()))); }

  host::JobOptions job_{host::openPPD(test::duplexPPD())};
  host::PanelHost panels_{test::builtBundle(),
                          std::make_shared<gtk3::GtkBundle>(test::builtBundle()), job_};
  std::unique_ptr<GtkPrintDialog> page_;
};

TEST_F(GtkPrintDialogTest, ATextStandsOnThePageAtADistance) {
  const int before = gtk_notebook_get_n_pages(tabs());
  page_->showText("Reading the printer's options…");
  EXPECT_EQ(gtk_notebook_get_n_pages(tabs()), before + 1);
  EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(content())), "Reading the printer's options…");
  EXPECT_EQ(border(), 18);
  EXPECT_STREQ(gtk_notebook_get_tab_label_text(tabs(), child()), nullptr) << "a sign stands there";
}

TEST_F(GtkPrintDialogTest, ThePanelsTakeTheTextsPlaceAndFillThePage) {
  page_->showText("Reading");
  const int before = gtk_notebook_get_n_pages(tabs());
  page_->showPanels(panels_);
  EXPECT_EQ(gtk_notebook_get_n_pages(tabs()), before);
  EXPECT_EQ(border(), 0);
  GtkWidget* const shown = content();
  EXPECT_EQ(gtk_widget_get_allocated_height(shown), gtk_widget_get_allocated_height(child()));
}

TEST_F(GtkPrintDialogTest, ThePageGoesAndComesWithItsTab) {
  page_->showText("Reading");
  page_->removePage();
  EXPECT_FALSE(gtk_widget_get_visible(child()));
  page_->showText("Reading");
  EXPECT_TRUE(gtk_widget_get_visible(child()));
}

TEST_F(GtkPrintDialogTest, TheTabHasASignWhileThereIsSomethingToTell) {
  page_->showPanels(panels_);
  GList* const parts = gtk_container_get_children(GTK_CONTAINER(tab()));
  ASSERT_EQ(g_list_length(parts), 2U);
  EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(parts->data)), "Card");
  auto* const sign = GTK_WIDGET(g_list_last(parts)->data);
  g_list_free(parts);
  EXPECT_FALSE(gtk_widget_get_visible(sign));
  page_->showStatus({.wrong = "", .pressing = {"A rule has changed an option."}, .printer = {}});
  EXPECT_TRUE(gtk_widget_get_visible(sign));
  EXPECT_STREQ(gtk_widget_get_tooltip_text(tab()), "A rule has changed an option.");
  AtkObject* const told = atk_object_ref_accessible_child(
      gtk_widget_get_accessible(GTK_WIDGET(tabs())), gtk_notebook_page_num(tabs(), child()));
  EXPECT_STREQ(atk_object_get_description(told), "A rule has changed an option.");
  g_object_unref(told);
  page_->showStatus({});
  EXPECT_FALSE(gtk_widget_get_visible(sign));
}

}  // namespace
}  // namespace cardpanels::gtk3module
