#include <gtest/gtest.h>
#include <gtkmm/box.h>

#include "ports/gtk4/Emphasis.h"
#include "ports/gtk4/WindowWidth.h"

namespace cardpanels::gtk4 {
namespace {

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
    for (auto* each : {&laminate_, &ribbon_, &text_}) box_.append(*each);
  }

  Gtk::Label laminate_{"_Laminate", true};
  Gtk::Label ribbon_{"Ribbon"};
  Gtk::Label text_{"Text"};
  Gtk::Box box_;
};

TEST_F(EmphasisTest, IsOnTheCaptionsOfTheseOptionsOnly) {
  emphasizeCaptions(box_, {"cardLaminate"});
  EXPECT_TRUE(isBold(laminate_));
  EXPECT_FALSE(isBold(ribbon_));
  EXPECT_FALSE(isBold(text_));
}

TEST_F(EmphasisTest, GoesAgain) {
  emphasizeAllCaptions(box_);
  EXPECT_TRUE(isBold(ribbon_));
  EXPECT_FALSE(isBold(text_));
  emphasizeCaptions(box_, {"cardLaminate"});
  EXPECT_TRUE(isBold(laminate_));
  EXPECT_FALSE(isBold(ribbon_));
}

TEST_F(EmphasisTest, TakesItsRoomAlongWhenItGoes) {
  const int plain = naturalWidth(box_);
  emphasizeAllCaptions(box_);
  EXPECT_GT(naturalWidth(box_), plain);
  emphasizeCaptions(box_, {});
  EXPECT_EQ(naturalWidth(box_), plain);
}

}  // namespace
}  // namespace cardpanels::gtk4
