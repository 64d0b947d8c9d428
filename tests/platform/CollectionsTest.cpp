#include <gtest/gtest.h>

#include "platform/Array.h"
#include "platform/Dictionary.h"

namespace cardpanels::platform {
namespace {

TEST(Array, IsDescribedOnOneLine) {
  EXPECT_EQ(StringArray({"frontUV", "a b"}).description(), R"((frontUV, "a b"))");
}

TEST(Array, WithoutElementsIsDescribedByItsBrackets) {
  EXPECT_EQ(StringArray().description(), "()");
}

TEST(Array, QuotesWhatIsNotPlain) {
  EXPECT_EQ(StringArray({"", "1\"", "a\\b", "Größe"}).description(),
            R"(("", "1\"", "a\\b", "Größe"))");
}

TEST(Array, ShowsObjectsByTheirDescription) {
  const Array<std::shared_ptr<Dictionary>> array({std::make_shared<Dictionary>(), nullptr});
  EXPECT_EQ(array.description(), R"-(("{}", "(null)"))-");
}

TEST(Array, RemovesEveryEqualElement) {
  StringArray array({"a", "b", "a"});
  array.remove("a");
  EXPECT_EQ(array.description(), "(b)");
}

TEST(Dictionary, IsDescribedOnOneLine) {
  Dictionary dictionary;
  dictionary.setValueForKey("None", "Front UV");
  EXPECT_EQ(dictionary.description(), R"({"Front UV" = None; })");
}

TEST(Dictionary, WithoutEntriesIsDescribedByItsBraces) {
  EXPECT_EQ(Dictionary().description(), "{}");
}

TEST(Dictionary, KeepsTheOrderAndReplacesInPlace) {
  Dictionary dictionary;
  dictionary.setValueForKey("1", "b");
  dictionary.setValueForKey("2", "a");
  dictionary.setValueForKey("3", "b");
  EXPECT_EQ(dictionary.description(), "{b = 3; a = 2; }");
  EXPECT_EQ(dictionary.size(), 2U);
}

TEST(Dictionary, AnswersNothingForAnUnknownKey) {
  EXPECT_EQ(Dictionary().valueForKey("a"), std::nullopt);
}

}  // namespace
}  // namespace cardpanels::platform
