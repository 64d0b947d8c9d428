#include <gtest/gtest.h>

#include <string>

#include "apps/cardprint-dialog/DocumentPages.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::cardprint {
namespace {

/// A page of a PDF with a red rectangle, X, Y, width and height from the bottom left corner.
struct Page {
  int width;
  int height;
  std::string rectangle;
};

/// A PDF of these pages. Readers find what the table of contents lacks.
std::string pdf(const std::vector<Page>& pages) {
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
         "trailer<</Root 1 0 R>>\n%%EOF\n";
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
    const int scale = cairo_image_surface_get_width(surface) / 200;
    const auto* const row = cairo_image_surface_get_data(surface) +
                            std::ptrdiff_t{y} * scale * cairo_image_surface_get_stride(surface);
    const unsigned char* const pixel = row + std::ptrdiff_t{x} * scale * 4;
    return pixel[2] > 200 && pixel[1] < 50 && pixel[0] < 50;
  }

 private:
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

TEST_F(DocumentPages, OfTheSizeOfSheetsAreMadeToFit) {
  const auto page = front(pdf({{800, 400, "0 200 200 200"}}));
  EXPECT_TRUE(isRed(page, 45, 45));
  EXPECT_FALSE(isRed(page, 55, 45));
}

TEST_F(DocumentPages, ThatAreSmallerStayInTheMiddleUnlessTheJobScales) {
  const std::string small = pdf({{100, 50, "0 25 50 25"}});
  EXPECT_TRUE(isRed(front(small), 55, 30));
  EXPECT_FALSE(isRed(front(small), 45, 30));
  EXPECT_TRUE(isRed(front(small, {{"fit-to-page", "true"}}), 5, 5));
  EXPECT_FALSE(isRed(front(small, {{"fit-to-page", "false"}}), 5, 5));
  EXPECT_TRUE(isRed(front(small, {{"print-scaling", "fill"}}), 5, 5));
  const std::string large = pdf({{800, 400, "0 0 800 400"}});
  EXPECT_TRUE(isRed(front(large, {{"print-scaling", "none"}}), 5, 5));
}

TEST_F(DocumentPages, ThatLieTheOtherWayAreTurned) {
  const auto page = front(pdf({{100, 200, "0 150 100 50"}}));  // red at the top
  EXPECT_TRUE(isRed(page, 10, 50));
  EXPECT_FALSE(isRed(page, 100, 50));
}

TEST_F(DocumentPages, OfAnImageIsTheFront) {
  const auto sides = pages("P3 4 2 255\n255 0 0 0 0 0 0 0 0 0 0 0\n0 0 0 0 0 0 0 0 0 0 0 0\n",
                           {{"fit-to-page", "true"}});
  EXPECT_TRUE(isRed(sides[0], 25, 25));
  EXPECT_FALSE(isRed(sides[0], 150, 80));
  EXPECT_EQ(sides[1].surface, nullptr);
  EXPECT_EQ(sides[1].why, "");
}

TEST_F(DocumentPages, ThatCannotBeReadAreBlankWithAWordWhy) {
  EXPECT_EQ(front("Some text.").why,
            "The document cannot be shown: it is neither PDF nor an image");
  EXPECT_EQ(front("%PDF-1.4\nnothing").why, "The document cannot be shown: it is damaged");
  EXPECT_EQ(front("Some text.").surface, nullptr);
}

}  // namespace
}  // namespace cardpanels::cardprint
