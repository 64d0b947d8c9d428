#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <map>

#include "dialog/CardPicture.h"
#include "dialog/PictureText.h"
#include "dialog/TypedAreas.h"
#include "host/PPDFile.h"
#include "host/PanelHost.h"
#include "ports/headless/Controls.h"
#include "ports/headless/HeadlessBundle.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/ScopedLocale.h"

namespace cardpanels::dialog {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr double kPointsOfMillimeter = 72 / 25.4;
constexpr const char* kInclude1 = "frontResinInclude1";
constexpr const char* kFields = "frontResinIncludeField1_";  // of the first
constexpr std::array kColumns{"X", "Y", "Width", "Height"};
constexpr const char* kExclude1 = "frontResinExclude1";

/// The real panel Ribbon and Resin on the sample printer, with the toolkit in memory, and the
/// picture of its front, in which a millimeter is ten pixels.
class CardPictures : public testing::Test {
 protected:
  CardPictures() {
    job.mark("frontResin", "DefinedAreas");
    panels = std::make_unique<host::PanelHost>(
        test::builtBundle(), std::make_shared<headless::HeadlessBundle>(test::builtBundle()), job);
    panel = panels->panels().front();
    panels->view(panel);
    panels->show(panel);
    fields = std::make_unique<TypedAreas>(
        dynamic_cast<platform::NibOwner&>(*panel),
        TypedAreas::Client{
            .store =
                [this] {
                  ++stores;
                  if (refused.empty()) return panels->storeTyped(panel);
                  for (const char* each : kColumns) field(kFields + std::string(each)).setText("");
                },
            .refusals = [this] { return refused.empty() ? panels->refusals() : refused; },
            .stored =
                [this](const std::string& key) { return areaTexts(job.marked(key).value_or("")); },
            .later = [](const std::function<void()>& task) { task(); },
            .changed =
                [this] {
                  ++changes;
                  if (picture) picture->refresh();
                }});
    picture = std::make_unique<CardPicture>(job, areaSides()[0], *fields);
    picture->setRoom(856, 540, 0);
  }

  ~CardPictures() override {
    picture.reset();
    fields.reset();
    panels->hide(panel);
  }

  /// A place in millimeters from the top left corner.
  static PicturePoint at(double x, double y) { return {10 * x, 10 * y}; }

  void dragFromTo(PicturePoint from, PicturePoint to) {
    picture->press(from);
    picture->drag({(from.x + to.x) / 2, (from.y + to.y) / 2});
    picture->drag(to);
    picture->drop();
  }

  headless::TextField& field(const std::string& outlet) {
    auto& owner = dynamic_cast<platform::NibOwner&>(*panel);
    return dynamic_cast<headless::TextField&>(*owner.outletNamed(outlet)->view(owner));
  }

  AreaTexts shown(const std::string& key = kInclude1) { return fields->texts()[key]; }
  std::string stored(const std::string& key = kInclude1) { return job.marked(key).value_or(""); }

  test::ScopedLocale metric{LC_MEASUREMENT, "de_DE.UTF-8"};
  host::JobOptions job{host::openPPD(test::duplexPPD())};
  std::unique_ptr<host::PanelHost> panels;
  host::PanelDriver::Panel panel;
  std::unique_ptr<TypedAreas> fields;
  std::unique_ptr<CardPicture> picture;
  std::map<std::string, std::string> refused;  // in place of what the host refuses
  int stores = 0;
  int changes = 0;
};

TEST_F(CardPictures, ADragInTheOpenMakesTheNextEmptyAreaAndStoresItOnce) {
  dragFromTo(at(12.1, 5.1), at(37, 13.1));
  EXPECT_THAT(shown(), ElementsAre("12mm", "5mm", "25mm", "8mm"));
  EXPECT_EQ(stored(), "Custom.12mm 5mm 25mm 8mm");
  EXPECT_EQ(stores, 1);
  EXPECT_EQ(picture->chosen(), kInclude1);
  dragFromTo(at(60, 40), at(50, 30));
  EXPECT_THAT(shown("frontResinInclude2"), ElementsAre("50mm", "30mm", "10mm", "10mm"));
  picture->drawExcludes(true);
  dragFromTo(at(60, 10), at(70, 15));
  EXPECT_THAT(shown(kExclude1), ElementsAre("60mm", "10mm", "10mm", "5mm"));
}

TEST_F(CardPictures, AClickInTheOpenMakesNothing) {
  dragFromTo(at(12, 5), at(12.1, 5.1));
  EXPECT_THAT(picture->scene().shapes, IsEmpty());
  EXPECT_EQ(stores, 0);
}

TEST_F(CardPictures, FollowWhatIsTypedBeforeItIsStored) {
  fields->type(kInclude1, {"12mm", "5mm", "25mm", "8mm"});
  ASSERT_EQ(picture->scene().shapes.size(), 1U);
  EXPECT_NEAR(picture->scene().shapes[0].place.x, 12 * kPointsOfMillimeter, 1e-9);
  EXPECT_EQ(stored(), "Default");
  field("frontResinIncludeField1_X").userTypes("13mm");
  EXPECT_NEAR(picture->scene().shapes[0].place.x, 13 * kPointsOfMillimeter, 1e-9);
  field("frontResinIncludeField1_X").userTypes("13m");
  EXPECT_THAT(picture->scene().shapes, IsEmpty());
  EXPECT_EQ(stores, 0);
}

TEST_F(CardPictures, AreReadAgainWhenAllIsStored) {
  fields->type(kInclude1, {"12mm", "5mm", "25mm", "8mm"});
  changes = 0;
  fields->storeEdits();
  EXPECT_EQ(stores, 1);
  EXPECT_EQ(changes, 1);
}

TEST_F(CardPictures, ARefusedAreaStaysTypedUntilTheStoredOneIsTakenBack) {
  const AreaTexts typed{"12mm", "5mm", "25mm", "8mm"};
  fields->type(kInclude1, typed);
  refused = {{kInclude1, "There is no room."}};
  fields->storeEdits();
  EXPECT_EQ(shown(), typed);
  EXPECT_EQ(fields->refusal(), "There is no room.");
  job.mark(kInclude1, "1in 2in 3in 4in");
  refused.clear();
  fields->takeStoredBack();
  EXPECT_THAT(shown(), ElementsAre("1in", "2in", "3in", "4in"));
  EXPECT_EQ(fields->refusal(), "");
}

TEST_F(CardPictures, ADragInsideMovesAndWritesTheUnitOfTheRow) {
  fields->type(kInclude1, {"1.20cm", "5mm", "1in", "8mm"});
  dragFromTo(at(20, 9), at(25, 9.1));
  EXPECT_THAT(shown(), ElementsAre("1.7cm", "5mm", "1in", "8mm"));
}

TEST_F(CardPictures, ADragAtAnEdgeOrCornerResizes) {
  fields->type(kInclude1, {"12mm", "5mm", "25mm", "8mm"});
  dragFromTo(at(37, 9), at(40, 9));
  EXPECT_THAT(shown(), ElementsAre("12mm", "5mm", "28mm", "8mm"));
  dragFromTo(at(12, 5), at(10, 4));
  EXPECT_THAT(shown(), ElementsAre("10mm", "4mm", "30mm", "9mm"));
}

TEST_F(CardPictures, ADragThereAndBackLeavesTheTexts) {
  fields->type(kInclude1, {"12.00mm", ".5cm", "25.0 mm", "8mm"});
  picture->press(at(20, 9));
  picture->drag(at(40, 30));
  EXPECT_EQ(shown()[0], "32mm");
  picture->drag(at(20.1, 9));
  picture->drop();
  EXPECT_THAT(shown(), ElementsAre("12.00mm", ".5cm", "25.0 mm", "8mm"));
}

TEST_F(CardPictures, EscapeGivesADragUp) {
  fields->type(kInclude1, {"12.00mm", "5mm", "25mm", "8mm"});
  picture->press(at(20, 9));
  picture->drag(at(40, 30));
  EXPECT_TRUE(picture->press(PictureKey::release));
  picture->drag(at(50, 30));
  picture->drop();
  EXPECT_THAT(shown(), ElementsAre("12.00mm", "5mm", "25mm", "8mm"));
}

TEST_F(CardPictures, EscapeChoosesNothingThenIsTheWindows) {
  fields->type(kInclude1, {"12mm", "5mm", "25mm", "8mm"});
  picture->choose(kInclude1);
  EXPECT_TRUE(picture->press(PictureKey::release));
  EXPECT_EQ(picture->chosen(), "");
  EXPECT_FALSE(picture->press(PictureKey::release));
}

TEST_F(CardPictures, ArrowsChooseAnAreaAndMoveIt) {
  fields->type(kInclude1, {"12mm", "5mm", "25mm", "8mm"});
  EXPECT_TRUE(picture->press(PictureKey::right));
  EXPECT_EQ(picture->chosen(), kInclude1);
  EXPECT_THAT(shown(), ElementsAre("12mm", "5mm", "25mm", "8mm"));
  picture->press(PictureKey::right);
  picture->press(PictureKey::down);
  EXPECT_THAT(shown(), ElementsAre("13mm", "6mm", "25mm", "8mm"));
  picture->press(PictureKey::left, {.fine = true});
  EXPECT_THAT(shown(), ElementsAre("12.9mm", "6mm", "25mm", "8mm"));
  picture->press(PictureKey::down, {.resizes = true});
  picture->press(PictureKey::left, {.fine = true, .resizes = true});
  EXPECT_THAT(shown(), ElementsAre("12.9mm", "6mm", "24.9mm", "9mm"));
  EXPECT_EQ(stored(), "Custom.12mm 5mm 25mm 8mm");
  picture->leave();
  EXPECT_EQ(stored(), "Custom.12.9mm 6mm 24.9mm 9mm");
}

TEST_F(CardPictures, AnAreaInInchesIsMovedByTheLeastThatItsTextCanTell) {
  fields->type(kInclude1, {"1in", "1in", "1in", "1in"});
  picture->choose(kInclude1);
  for (int i = 0; i < 3; ++i) picture->press(PictureKey::right, {.fine = true});
  EXPECT_EQ(shown()[0], "1.03in");
}

TEST_F(CardPictures, AnAreaAtTheEdgeStaysThere) {
  fields->type(kInclude1, {"0mm", "0.5mm", "25mm", "1mm"});
  picture->choose(kInclude1);
  picture->press(PictureKey::left);
  picture->press(PictureKey::up);
  picture->press(PictureKey::up, {.resizes = true});
  EXPECT_THAT(shown(), ElementsAre("0mm", "0mm", "25mm", "1mm"));
}

TEST_F(CardPictures, OtherKeysWalkClearMakeAndEdit) {
  EXPECT_FALSE(picture->press(PictureKey::right));
  EXPECT_TRUE(picture->press(PictureKey::create));
  EXPECT_EQ(picture->chosen(), kInclude1);
  EXPECT_THAT(shown(), ElementsAre("38mm", "22mm", "10mm", "10mm"));
  EXPECT_TRUE(picture->press(PictureKey::create));
  EXPECT_EQ(picture->chosen(), "frontResinInclude2");
  picture->press(PictureKey::previous);
  EXPECT_EQ(picture->chosen(), kInclude1);
  EXPECT_TRUE(picture->press(PictureKey::edit));
  EXPECT_TRUE(field("frontResinIncludeField1_X").hasFocus());
  EXPECT_TRUE(picture->press(PictureKey::clear));
  EXPECT_EQ(shown(), AreaTexts());
  EXPECT_EQ(stored(), "Default");
  EXPECT_TRUE(picture->chosen().empty());
}

TEST_F(CardPictures, CountFromTheBottomWhereThePrinterDoes) {
  host::CardGeometry card{.width = 100, .height = 50, .countsFromBottom = true};
  const PictureLayout layout(card, 200, 100, 0);
  const PictureBox box = layout.boxOf({10, 0, 20, 10});
  EXPECT_EQ(box.top, 80);
  EXPECT_EQ(box.height, 20);
  EXPECT_EQ(layout.onCard({20, 100}).y, 0);
  EXPECT_EQ(layout.onCard({20, 80}).y, 10);
  const std::vector<CardShape> shapes{
      {.key = kInclude1, .place = {10, 0, 20, 10}, .texts = {}, .warnings = {}}};
  const auto hit = hitAt(shapes, {}, layout, {40, 80});
  ASSERT_TRUE(hit);
  EXPECT_EQ(hit->grip, (Grip{.end = true}));
  EXPECT_STREQ(cursorOver(hit, true), "n-resize");
  EXPECT_STREQ(cursorOver(hit, false), "s-resize");
}

TEST_F(CardPictures, TheSmallestAreaIsHitUnlessAnotherIsChosen) {
  fields->type(kInclude1, {"10mm", "10mm", "40mm", "30mm"});
  fields->type(kExclude1, {"20mm", "15mm", "10mm", "10mm"});
  const auto keyAt = [this](const std::string& chosen) {
    const auto hit = hitAt(picture->scene().shapes, chosen, picture->layout(), at(25, 20));
    return hit ? picture->scene().shapes[hit->shape].key : "";
  };
  EXPECT_EQ(keyAt(""), kExclude1);
  EXPECT_EQ(keyAt(kInclude1), kInclude1);
}

TEST_F(CardPictures, SayWhereAnAreaIsAndWhatIsWrongWithIt) {
  EXPECT_EQ(pictureName(picture->scene()), "Front of the card, 85.6 by 54 mm");
  fields->type(kInclude1, {"63.6mm", "5mm", "25mm", "8mm"});
  const auto words = [this] {
    return shapeInWords(picture->scene(), picture->scene().shapes.at(0));
  };
  EXPECT_EQ(words(),
            "Include area 1, 63.6 mm from left, 5 mm from top, 25 by 8 mm; "
            "3 mm outside on the right");
  fields->type(kExclude1, {"60mm", "4mm", "30mm", "10mm"});
  fields->type(kInclude1, {"62mm", "5mm", "20mm", "8mm"});
  EXPECT_EQ(words(),
            "Include area 1, 62 mm from left, 5 mm from top, 20 by 8 mm; covered by another area");
  fields->type(kInclude1, {"90mm", "5mm", "20mm", "8mm"});
  EXPECT_EQ(words(),
            "Include area 1, 90 mm from left, 5 mm from top, 20 by 8 mm; wholly outside the card");
  fields->type(kInclude1, {"10mm", "5mm", "", ""});
  EXPECT_EQ(words(), "Include area 1, 10 mm from left, 5 mm from top, 0 by 0 mm; without a size");
}

TEST_F(CardPictures, ShowAChoiceWhereThePPDTellsWhereItLies) {
  EXPECT_TRUE(picture->scene().isShown);
  job.mark("frontResin", "TopHalf");
  picture->refresh();
  ASSERT_EQ(picture->scene().fixed.size(), 1U);
  EXPECT_NEAR(picture->scene().fixed[0].height, 27 * kPointsOfMillimeter, 1e-9);
  EXPECT_EQ(pictureDescription(picture->scene()),
            "Top Half, 0 mm from left, 0 mm from top, 85.6 by 27 mm");
  EXPECT_TRUE(picture->scene().isShown);
  job.mark("frontResin", "WholeCard");
  picture->refresh();
  EXPECT_FALSE(picture->scene().isShown);
  job.mark("frontResin", "TopHalf");
  job.mark("frontRibbon", "K");
  picture->refresh();
  EXPECT_FALSE(picture->scene().isShown);
}

}  // namespace
}  // namespace cardpanels::dialog
