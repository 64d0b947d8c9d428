#include <gtest/gtest.h>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "apps/cardprint/Layout.h"

namespace cardpanels::cardprint {
namespace {

using Attributes = std::map<std::string, std::string>;

/// A job of which only the attributes are asked: its own, and saved ones below them.
class AttributesOnly : public DialogJob {
 public:
  explicit AttributesOnly(Attributes own = {}, Attributes saved = {})
      : own_(std::move(own)), saved_(std::move(saved)) {}

  const Attributes& own() const { return own_; }

  platform::Text attribute(const std::string& key) const override {
    if (own_.contains(key)) return own_.at(key);
    if (saved_.contains(key)) return saved_.at(key);
    return std::nullopt;
  }
  void setAttribute(const host::Option& attribute) override {
    own_.erase(attribute.key);
    if (!attribute.value.empty()) own_[attribute.key] = attribute.value;
  }

  const std::string& printerName() const override { throw asked(); }
  const host::QueueName& queue() const override { throw asked(); }
  host::PanelHost& panels() override { throw asked(); }
  const std::vector<std::string>& leftOut() const override { throw asked(); }
  const std::vector<host::Option>& serverOptions() const override { throw asked(); }
  void usePreset(const std::string&) override { throw asked(); }
  const std::vector<std::string>& files() const override { throw asked(); }
  void setFiles(std::vector<std::string>) override { throw asked(); }
  std::vector<host::Submission> submissions() const override { throw asked(); }
  const platform::Text& ppdText() const override { throw asked(); }
  std::string sent(const std::vector<int>&) override { throw asked(); }
  PrintedFile firstFile() const override { throw asked(); }
  std::string send() override { throw asked(); }

 private:
  static std::logic_error asked() { return std::logic_error("asked for more than attributes"); }

  Attributes own_;
  Attributes saved_;
};

TEST(Copies, AreANumberThatTheServerTakes) {
  EXPECT_EQ(copiesOf(AttributesOnly()), 1);
  for (const auto& [text, copies] :
       std::map<std::string, int>{{"12", 12}, {"0", 1}, {"-3", 1}, {"99999", 9999}, {"many", 1}}) {
    EXPECT_EQ(copiesOf(AttributesOnly(Attributes{{"copies", text}})), copies) << text;
  }
  EXPECT_EQ(copiesOf(AttributesOnly({}, {{"copies", "2"}})), 2);
}

TEST(Copies, AreSaidWhereTheJobWouldHaveOthers) {
  AttributesOnly job;
  setCopies(job, 3);
  EXPECT_EQ(job.own(), (Attributes{{"copies", "3"}}));
  setCopies(job, 1);
  EXPECT_EQ(job.own(), Attributes());
  AttributesOnly saved({}, {{"copies", "2"}});
  setCopies(saved, 1);
  EXPECT_EQ(saved.own(), (Attributes{{"copies", "1"}}));
  setCopies(saved, 2);
  EXPECT_EQ(saved.own(), Attributes());
}

TEST(Orientation, IsThatOfEitherAttribute) {
  const auto valueOf = [](const Attributes& own) {
    return orientations().at(orientationOf(AttributesOnly(own))).value;
  };
  EXPECT_EQ(valueOf({}), "");
  for (const char* value : {"3", "4", "5", "6"}) {
    EXPECT_EQ(valueOf({{"orientation-requested", value}}), value);
  }
  EXPECT_EQ(valueOf({{"orientation-requested", "7"}}), "");
  EXPECT_EQ(valueOf({{"landscape", "true"}}), "4");
  for (const char* no : {"false", "No", "OFF"}) {
    EXPECT_EQ(valueOf({{"landscape", no}}), "") << no;
  }
  EXPECT_EQ(valueOf({{"landscape", "true"}, {"orientation-requested", "3"}}), "3");
}

TEST(Orientation, IsSetInOneAttribute) {
  AttributesOnly job(Attributes{{"landscape", "true"}});
  setOrientation(job, "5");
  EXPECT_EQ(job.own(), (Attributes{{"orientation-requested", "5"}}));
  setOrientation(job, "");
  EXPECT_EQ(job.own(), Attributes());
}

TEST(Fitting, IsThatOfAnyAttribute) {
  EXPECT_FALSE(isFitted(AttributesOnly()));
  for (const char* key : {"fit-to-page", "fitplot"}) {
    EXPECT_TRUE(isFitted(AttributesOnly(Attributes{{key, "true"}}))) << key;
    EXPECT_FALSE(isFitted(AttributesOnly(Attributes{{key, "false"}}))) << key;
  }
  EXPECT_TRUE(isFitted(AttributesOnly(Attributes{{"print-scaling", "fit"}})));
  EXPECT_FALSE(isFitted(AttributesOnly(Attributes{{"print-scaling", "fill"}})));
}

TEST(Fitting, IsSetInOneAttribute) {
  for (const Attributes& before :
       {Attributes{{"fitplot", "true"}}, Attributes{{"print-scaling", "fit"}}, Attributes()}) {
    AttributesOnly job(before);
    setFitted(job, true);
    EXPECT_EQ(job.own(), (Attributes{{"fit-to-page", "true"}}));
    AttributesOnly other(before);
    setFitted(other, false);
    EXPECT_EQ(other.own(), Attributes());
  }
  AttributesOnly saved({}, {{"fit-to-page", "true"}});
  setFitted(saved, false);
  EXPECT_EQ(saved.own(), (Attributes{{"fit-to-page", "false"}}));
}

}  // namespace
}  // namespace cardpanels::cardprint
