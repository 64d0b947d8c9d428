#include <gtest/gtest.h>

#include "platform/Format.h"
#include "platform/Object.h"

namespace cardpanels::platform {
namespace {

struct Card final : Object {
  std::string_view className() const override { return "Card"; }
};

TEST(Object, IsDescribedByClassAndAddress) {
  const Card card;
  EXPECT_EQ(card.description(), "<Card: " + addressText(&card) + ">");
}

TEST(Object, AnAddressIsLowerCaseHexadecimal) {
  EXPECT_EQ(addressText(reinterpret_cast<const void*>(0xABC0)), "0xabc0");
}

TEST(Object, NoAddressIsZero) { EXPECT_EQ(addressText(nullptr), "0x0"); }

}  // namespace
}  // namespace cardpanels::platform
