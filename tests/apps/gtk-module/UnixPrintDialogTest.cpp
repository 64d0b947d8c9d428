#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "apps/gtk-module/UnixPrintDialog.h"
#include "tests/apps/gtk-module/UnixPrintDialogs.h"

namespace cardpanels::gtkmodule {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// What all dialogs have in common, without a page.
class PagelessDialog : public UnixPrintDialog {
 public:
  using UnixPrintDialog::UnixPrintDialog;
  int told = 0;

  void showText(const std::string& /*text*/) override {}
  dialog::Page& showPanels(host::PanelHost& /*panels*/) override {
    throw std::logic_error("there is no page");
  }
  void removePage() override {}

 private:
  void tellStatus() override { ++told; }
};

using UnixPrintDialogTest = UnixPrintDialogs;

TEST_F(UnixPrintDialogTest, CopiesAreThoseOfTheDialog) {
  PagelessDialog dialog(native());
  EXPECT_EQ(dialog.copies(), "1");
  dialog.setCopies("3");
  EXPECT_EQ(dialog.copies(), "3");
  EXPECT_EQ(gtk_spin_button_get_value_as_int(GTK_SPIN_BUTTON(named("copies_spin"))), 3);
}

TEST_F(UnixPrintDialogTest, ThePageSizeIsChosenByItsKeyword) {
  PagelessDialog dialog(native());
  for (const char* size : {"A5", "A4", "Letter"}) {
    dialog.setPageSize(size);
    test::handleEvents();
    EXPECT_EQ(dialog.pageSize(), size);
  }
  dialog.setPageSize("CR80");
  test::handleEvents();
  EXPECT_EQ(dialog.pageSize(), "Letter");
}

TEST_F(UnixPrintDialogTest, ChangesAreToldOnceLater) {
  PagelessDialog dialog(native());
  dialog.setCopies("2");
  test::handleEvents();
  int changes = 0;
  dialog.setChanged([&changes] { ++changes; });
  dialog.setCopies("3");
  dialog.setCopies("4");
  dialog.setPageSize("A5");
  EXPECT_EQ(changes, 0);
  test::handleEvents();
  EXPECT_EQ(changes, 1);
}

TEST_F(UnixPrintDialogTest, WhatIsGivenToTheDialogIsAnOptionOfIt) {
  PagelessDialog dialog(native());
  EXPECT_THAT(dialog.options(), IsEmpty());
  int changes = 0;
  dialog.setChanged([&changes] { ++changes; });
  dialog.addOptions({{"frontRibbon", "YMCK"}, {"cardLaminate", "Back"}});
  dialog.addOptions({{"frontRibbon", "None"}});
  EXPECT_THAT(dialog.options(), ElementsAre(host::Option{"frontRibbon", "YMCK"},
                                            host::Option{"cardLaminate", "Back"}));
  dialog.set({"cardLaminate", "Front"});
  dialog.set({"cardThickness", "30"});
  EXPECT_THAT(dialog.options(), ElementsAre(host::Option{"frontRibbon", "YMCK"},
                                            host::Option{"cardLaminate", "Front"}));
  test::handleEvents();
  EXPECT_EQ(changes, 1);
  dialog.set({"frontRibbon", "gtk-ignore-value"});
  EXPECT_THAT(dialog.options(), ElementsAre(host::Option{"cardLaminate", "Front"}));
}

TEST_F(UnixPrintDialogTest, NothingIsPrintedWhileSomethingIsWrong) {
  PagelessDialog dialog(native());
  ASSERT_TRUE(canPrint());
  ASSERT_TRUE(canPreview());
  dialog.showStatus({.wrong = "A field is no measurement.", .pressing = {}, .printer = {}});
  EXPECT_EQ(dialog.told, 1);
  EXPECT_FALSE(canPrint());
  EXPECT_FALSE(canPreview());
  // GTK, for a printer that has come.
  gtk_widget_set_sensitive(button(GTK_RESPONSE_OK), TRUE);
  gtk_widget_set_sensitive(button(GTK_RESPONSE_APPLY), TRUE);
  EXPECT_FALSE(canPrint());
  EXPECT_FALSE(canPreview());
  dialog.showStatus({});
  EXPECT_TRUE(canPrint());
  EXPECT_TRUE(canPreview());
}

TEST_F(UnixPrintDialogTest, WhatGTKKeepsBackStaysKeptBack) {
  PagelessDialog dialog(native());
  gtk_widget_set_sensitive(button(GTK_RESPONSE_APPLY), FALSE);
  dialog.showStatus({.wrong = "A field is no measurement.", .pressing = {}, .printer = {}});
  dialog.showStatus({});
  EXPECT_TRUE(canPrint());
  EXPECT_FALSE(canPreview());
}

TEST_F(UnixPrintDialogTest, AConflictThatIsNoneIsNotShown) {
  PagelessDialog dialog(native());
  GtkWidget* const sign = named("conflicts_widget");
  const auto isShown = [sign] { return gtk_widget_get_visible(sign) != FALSE; };
  const auto isGone = [isShown] { return !isShown(); };
  gtk_widget_set_visible(sign, TRUE);
  EXPECT_TRUE(isShown());
  gtk_widget_set_visible(sign, FALSE);
  ASSERT_TRUE(test::handleEventsUntil(isGone));
  bool isDenied = true;
  dialog.setConflictDenied([&isDenied] { return isDenied; });
  gtk_widget_set_visible(sign, TRUE);
  EXPECT_TRUE(test::handleEventsUntil(isGone));
  isDenied = false;
  gtk_widget_set_visible(sign, TRUE);
  letItMove();
  EXPECT_TRUE(isShown());
}

TEST_F(UnixPrintDialogTest, AConflictThatIsResolvedGoesSlowlyAndHoldsNothing) {
  PagelessDialog dialog(native());
  bool isDenied = false;
  dialog.setConflictDenied([&isDenied] { return isDenied; });
  GtkWidget* const sign = named("conflicts_widget");
  gtk_widget_set_visible(sign, TRUE);
  letItMove();
  isDenied = true;
  gtk_widget_set_visible(sign, FALSE);
  EXPECT_TRUE(test::handleEventsUntil([sign] { return gtk_widget_get_visible(sign) == FALSE; }));
}

#if !GTK_CHECK_VERSION(4, 0, 0)

TEST_F(UnixPrintDialogTest, ADialogWithOtherNamesForItsPartsIsLeftAlone) {
  for (const char* name : {"conflicts_widget", "paper_size_combo", "copies_spin"}) {
    gtk_buildable_set_name(GTK_BUILDABLE(named(name)), "renamed");
  }
  PagelessDialog dialog(native());
  const std::string size = dialog.pageSize();
  dialog.setPageSize("A5");
  dialog.setCopies("3");
  test::handleEvents();
  EXPECT_EQ(dialog.copies(), "1");
  EXPECT_EQ(dialog.pageSize(), size);
}

#endif

}  // namespace
}  // namespace cardpanels::gtkmodule
