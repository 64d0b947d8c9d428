// The emphasis of the port to the GTK that this is compiled for.
#include <gtest/gtest.h>
#include <gtkmm/box.h>

#if GTK_CHECK_VERSION(4, 0, 0)
#include "ports/gtk4/Emphasis.h"
#include "ports/gtk4/WindowWidth.h"
#else
#include "ports/gtk3/Emphasis.h"
#include "ports/gtk3/WindowWidth.h"
#endif

namespace cardpanels::gtk {
namespace {

#if GTK_CHECK_VERSION(4, 0, 0)
namespace port = gtk4;

int widthOf(Gtk::Widget& widget) { return port::naturalWidth(widget); }
#else
namespace port = gtk3;

int widthOf(Gtk::Widget& widget) { return port::widthWithHidden(widget); }
#endif

bool isBold(Gtk::Label& label) {
  PangoAttrList* const attributes = gtk_label_get_attributes(label.gobj());
  if (attributes == nullptr) return false;
  PangoAttrIterator* const each = pango_attr_list_get_iterator(attributes);
  const auto* const weight =
      reinterpret_cast<PangoAttrInt*>(pango_attr_iterator_get(each, PANGO_ATTR_WEIGHT));
  const bool bold = weight != nullptr && weight->value == PANGO_WEIGHT_BOLD;
  pango_attr_iterator_destroy(each);
  return bold;
}

class EmphasisTest : public testing::Test {
 protected:
  void SetUp() override {
    laminate_.set_name("title-cardLaminate");
    ribbon_.set_name("title-frontRibbon");
    for (auto* each : {&laminate_, &ribbon_, &text_}) {
#if GTK_CHECK_VERSION(4, 0, 0)
      box_.append(*each);
#else
      box_.add(*each);
      each->show();
#endif
    }
  }

  Gtk::Label laminate_{"_Laminate", true};
  Gtk::Label ribbon_{"Ribbon"};
  Gtk::Label text_{"Text"};
  Gtk::Box box_;
};

TEST_F(EmphasisTest, IsOnTheCaptionsOfTheseOptionsOnly) {
  port::emphasizeCaptions(box_, {"cardLaminate"});
  EXPECT_TRUE(isBold(laminate_));
  EXPECT_FALSE(isBold(ribbon_));
  EXPECT_FALSE(isBold(text_));
}

TEST_F(EmphasisTest, GoesAgain) {
  port::emphasizeAllCaptions(box_);
  EXPECT_TRUE(isBold(ribbon_));
  EXPECT_FALSE(isBold(text_));
  port::emphasizeCaptions(box_, {"cardLaminate"});
  EXPECT_TRUE(isBold(laminate_));
  EXPECT_FALSE(isBold(ribbon_));
}

TEST_F(EmphasisTest, TakesItsRoomAlongWhenItGoes) {
  const int plain = widthOf(box_);
  port::emphasizeAllCaptions(box_);
  EXPECT_GT(widthOf(box_), plain);
  port::emphasizeCaptions(box_, {});
  EXPECT_EQ(widthOf(box_), plain);
}

}  // namespace
}  // namespace cardpanels::gtk
