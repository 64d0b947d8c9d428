#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "apps/cardprint-dialog/DocumentPages.h"
#include "tests/support/Process.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::cardprint {
namespace {

/// A page of a PDF with a red rectangle, X, Y, width and height from the bottom left corner.
struct Page {
  int width;
  int height;
  std::string rectangle;
};

/// A PDF of these pages. Readers find what the table of contents lacks. `more` goes into its
/// trailer.
std::string pdf(const std::vector<Page>& pages, const std::string& more = "") {
  std::string kids;
  std::string objects;
  int number = 3;
  for (const Page& page : pages) {
    const std::string drawing = "1 0 0 rg " + page.rectangle + " re f";
    kids += std::to_string(number) + " 0 R ";
    objects += std::to_string(number) + " 0 obj<</Type/Page/Parent 2 0 R/MediaBox[0 0 " +
               std::to_string(page.width) + " " + std::to_string(page.height) + "]/Contents " +
               std::to_string(number + 1) + " 0 R>>endobj\n" + std::to_string(number + 1) +
               " 0 obj<</Length " + std::to_string(drawing.size()) + ">>stream\n" + drawing +
               "\nendstream endobj\n";
    number += 2;
  }
  return "%PDF-1.4\n1 0 obj<</Type/Catalog/Pages 2 0 R>>endobj\n2 0 obj<</Type/Pages/Kids[" + kids +
         "]/Count " + std::to_string(pages.size()) + ">>endobj\n" + objects +
         "trailer<</Root 1 0 R" + more + ">>\n%%EOF\n";
}

/// An image with a red rectangle in its bottom left corner, 4/10 wide and 2/10 high.
std::string image(int width, int height) {
  std::string bytes = "P6 " + std::to_string(width) + " " + std::to_string(height) + " 255\n";
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x)
      bytes +=
          x * 10 < width * 4 && y * 10 >= height * 8 ? std::string("\xff\0\0", 3) : "\xff\xff\xff";
  }
  return bytes;
}

/// A page of a PDF with such a rectangle.
std::string page(int width, int height) {
  return pdf({{width, height,
               "0 0 " + std::to_string(width * 4 / 10) + " " + std::to_string(height * 2 / 10)}});
}

/// What is drawn of files on a card of 200 by 100 points.
class DocumentPages : public testing::Test {
 protected:
  DocumentPage front(const std::string& file, const std::vector<host::Option>& attributes = {}) {
    return pages(file, attributes)[0];
  }

  std::array<DocumentPage, 2> pages(const std::string& file,
                                    const std::vector<host::Option>& attributes = {}) {
    return drawDocument({folder_.write("document", file), 200, 100, attributes});
  }

  /// Whether the card is red at a place in points from its top left corner.
  static bool isRed(const DocumentPage& page, int x, int y) {
    cairo_surface_t* const surface = page.surface.get();
    if (surface == nullptr) return false;
    constexpr int scale = 4;  // pixels a point
    const auto* const row = cairo_image_surface_get_data(surface) +
                            std::ptrdiff_t{y} * scale * cairo_image_surface_get_stride(surface);
    const unsigned char* const pixel = row + std::ptrdiff_t{x} * scale * 4;
    return pixel[2] > 200 && pixel[1] < 50 && pixel[0] < 50;
  }

  test::TemporaryFolder folder_;
};

TEST_F(DocumentPages, OfAPDFAreForFrontAndBack) {
  const auto sides = pages(pdf({{200, 100, "0 50 50 50"}, {200, 100, "150 0 50 50"}}));
  EXPECT_TRUE(isRed(sides[0], 10, 10));
  EXPECT_FALSE(isRed(sides[0], 190, 90));
  EXPECT_TRUE(isRed(sides[1], 190, 90));
  EXPECT_FALSE(isRed(sides[1], 10, 10));
  EXPECT_EQ(pages(pdf({{200, 100, "0 0 9 9"}}))[1].surface, nullptr);
}

TEST_F(DocumentPages, OfAnImageIsTheFront) {
  const auto sides = pages("P3 4 2 255\n255 0 0 0 0 0 0 0 0 0 0 0\n0 0 0 0 0 0 0 0 0 0 0 0\n",
                           {{"fit-to-page", "true"}});
  EXPECT_TRUE(isRed(sides[0], 25, 25));
  EXPECT_FALSE(isRed(sides[0], 150, 80));
  EXPECT_EQ(sides[1].surface, nullptr);
  EXPECT_EQ(sides[1].why, "");
}

TEST_F(DocumentPages, AreThoseThatTheJobChooses) {
  const std::string file = pdf({{200, 100, "0 90 10 10"},
                                {200, 100, "50 90 10 10"},
                                {200, 100, "100 90 10 10"},
                                {200, 100, "150 90 10 10"}});
  const auto places = [&](const std::vector<host::Option>& attributes) {
    std::vector<int> found;
    for (const auto& side : pages(file, attributes)) {
      for (int x = 5; x < 200; x += 50) {
        if (isRed(side, x, 5)) found.push_back(x / 50 + 1);
      }
    }
    return found;
  };
  using Pages = std::vector<int>;
  EXPECT_EQ(places({{"page-ranges", "2-3"}}), (Pages{2, 3}));
  EXPECT_EQ(places({{"page-ranges", "1,4"}}), (Pages{1, 4}));
  EXPECT_EQ(places({{"page-ranges", "4-"}}), (Pages{4}));
  EXPECT_EQ(places({{"page-ranges", "-2"}}), (Pages{1, 2}));
  EXPECT_EQ(places({{"page-ranges", "9"}}), Pages());
  EXPECT_EQ(places({{"page-set", "even"}}), (Pages{2, 4}));
  EXPECT_EQ(places({{"page-ranges", "2-4"}, {"page-set", "odd"}}), (Pages{3}));
}

TEST_F(DocumentPages, ThatCannotBeReadAreBlankWithAWordWhy) {
  EXPECT_EQ(front("Some text.").why,
            "The document cannot be shown: it is neither PDF nor an image");
  EXPECT_EQ(front("%PDF-1.4\nnothing").why, "The document cannot be shown: it is damaged");
  const std::string key = "(" + std::string(32, 'x') + ")";
  const std::string locked =
      "/ID[(1)(1)]/Encrypt<</Filter/Standard/V 1/R 2/P -4/O" + key + "/U" + key + ">>";
  EXPECT_EQ(front(pdf({{200, 100, "0 0 9 9"}}, locked)).why,
            "The document cannot be shown: it needs a password");
  EXPECT_EQ(front("Some text.").surface, nullptr);
}

/// A document of which the print server's filters make pages.
struct Filtered {
  const char* type;
  std::string file;
  std::vector<host::Option> attributes;
};

void PrintTo(const Filtered& document, std::ostream* out) {
  *out << document.type;
  for (const host::Option& each : document.attributes) *out << ' ' << each.key << '=' << each.value;
}

constexpr const char* kImage = "image/x-portable-anymap";
constexpr const char* kPDF = "application/pdf";

std::vector<Filtered> filteredDocuments() {
  std::vector<Filtered> all;
  const std::vector<std::vector<host::Option>> both = {
      {},
      {{"fit-to-page", "true"}},
      {{"fit-to-page", "false"}},
      {{"print-scaling", "auto"}},
      {{"print-scaling", "auto-fit"}},
      {{"print-scaling", "fit"}},
      {{"print-scaling", "fill"}},
      {{"print-scaling", "none"}},
      {{"landscape", "true"}},
      {{"orientation-requested", "3"}},
      {{"orientation-requested", "4"}},
      {{"orientation-requested", "5"}},
      {{"orientation-requested", "6"}},
      {{"orientation-requested", "5"}, {"fit-to-page", "true"}},
      {{"scaling", "50"}},
      {{"natural-scaling", "50"}},
  };
  for (const auto& attributes : both) {
    for (const auto& [width, height] : {std::pair(100, 50), {50, 100}, {800, 400}}) {
      all.push_back({kPDF, page(width, height), attributes});
      all.push_back({kImage, image(width, height), attributes});
    }
  }
  for (const auto& attributes : std::vector<std::vector<host::Option>>{
           {{"ppi", "72"}},
           {{"ppi", "72x144"}},
           {{"ppi", "30"}},
           {{"scaling", "150"}},
           {{"scaling", "150"}, {"orientation-requested", "4"}}}) {
    for (const auto& [width, height] : {std::pair(100, 50), {50, 100}, {800, 400}})
      all.push_back({kImage, image(width, height), attributes});
  }
  return all;
}

class FilteredPages : public DocumentPages, public testing::WithParamInterface<Filtered> {
 protected:
  static constexpr double kWidth = 242.65;
  static constexpr double kHeight = 153.01;

  /// Left, top, right and bottom of what is red in pixels, all 0 where nothing is.
  static std::array<int, 4> redBox(const DocumentPage& page) {
    std::array<int, 4> box{9999, 9999, 0, 0};
    if (page.surface == nullptr) return {};
    for (int y = 0; y < static_cast<int>(kHeight); ++y) {
      for (int x = 0; x < static_cast<int>(kWidth); ++x) {
        if (!isRed(page, x, y)) continue;
        box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y)};
      }
    }
    return box[0] == 9999 ? std::array<int, 4>{} : box;
  }

  std::string filtered() {
    std::string options;
    for (const host::Option& each : GetParam().attributes)
      options += " -o " + each.key + "=" + each.value;
    const test::Finished done = test::runCommand(
        "/usr/sbin/cupsfilter -p " CARDPANELS_SOURCE_DIR "/resources/ppd/card-duplex.ppd -i " +
        std::string(GetParam().type) + " -m application/vnd.cups-pdf" + options + " " +
        folder_.write("document", GetParam().file));
    return done.output;
  }
};

TEST_P(FilteredPages, LieWhereTheyArePrinted) {
  const auto shown = drawDocument(
      {folder_.write("document", GetParam().file), kWidth, kHeight, GetParam().attributes});
  const auto printed =
      drawDocument({folder_.write("printed.pdf", filtered()), kWidth, kHeight, {}});
  ASSERT_NE(printed[0].surface, nullptr) << printed[0].why;
  for (std::size_t side = 0; side < 2; ++side) {
    const auto box = redBox(shown.at(side));
    const auto expected = redBox(printed.at(side));
    for (std::size_t i = 0; i < box.size(); ++i)
      EXPECT_NEAR(box.at(i), expected.at(i), 3) << side << " " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(OfCupsFilters, FilteredPages, testing::ValuesIn(filteredDocuments()));

}  // namespace
}  // namespace cardpanels::cardprint
