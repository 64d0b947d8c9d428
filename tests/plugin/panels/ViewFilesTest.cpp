// The panels' user-interface files, as assistive technology and the area strings need them.
#include <gtest/gtest.h>

#include <pugixml.hpp>
#include <set>
#include <string>

namespace cardpanels {
namespace {

std::string property(const pugi::xml_node& object, const char* name) {
  return object.find_child_by_attribute("property", "name", name).text().get();
}

class AreaViewFile : public testing::TestWithParam<const char*> {
 protected:
  AreaViewFile() {
    const std::string path = std::string(CARDPANELS_SOURCE_DIR "/resources/ui/") + GetParam();
    EXPECT_TRUE(document_.load_file(path.c_str())) << path;
  }

  pugi::xpath_node_set fields() const {
    return document_.select_nodes("//object[@class='GtkEntry']");
  }

 private:
  pugi::xml_document document_;
};

TEST_P(AreaViewFile, FieldsTakeAtMost20Characters) {
  EXPECT_EQ(fields().size(), 48U);
  for (const auto& field : fields()) EXPECT_EQ(property(field.node(), "max-length"), "20");
}

TEST_P(AreaViewFile, EachFieldHasAnAccessibleNameOfItsOwn) {
  std::set<std::string> names;
  for (const auto& field : fields()) {
    const auto accessible =
        field.node().find_child_by_attribute("child", "internal-child", "accessible");
    names.insert(property(accessible.child("object"), "AtkObject::accessible-name"));
  }
  EXPECT_EQ(names.size(), 48U);
  EXPECT_FALSE(names.contains(""));
}

INSTANTIATE_TEST_SUITE_P(OfEachAreaPanel, AreaViewFile,
                         testing::Values("PeelOffPDE.ui", "RibbonPanelsPDE.ui"),
                         [](const auto& file) {
                           const std::string name = file.param;
                           return name.substr(0, name.find('.'));
                         });

}  // namespace
}  // namespace cardpanels
