#include <gtest/gtest.h>

#include <optional>

#include "apps/pde-drive/StableAddresses.h"

namespace cardpanels::drive {
namespace {

TEST(StableAddresses, AreNumberedByFirstAppearance) {
  StableAddresses addresses;
  EXPECT_EQ(addresses.renamed("<A: 0x7f10> <B: 0x7f20>"), "<A: 0x1> <B: 0x2>");
  EXPECT_EQ(addresses.renamed("0x7f20 0x7f30 0x7f10"), "0x2 0x3 0x1");
}

TEST(StableAddresses, AreHexadecimal) {
  StableAddresses addresses;
  for (int i = 1; i < 10; ++i) addresses.renamed("0x7f0" + std::to_string(i));
  EXPECT_EQ(addresses.renamed("0xabc"), "0xa");
}

TEST(StableAddresses, AnObjectAtTheSamePlaceGetsAnotherName) {
  struct Card final : platform::Object {
    std::string_view className() const override { return "Card"; }
  };
  StableAddresses addresses;
  std::optional<Card> card(std::in_place);
  EXPECT_EQ(addresses.renamed(card->description()), "<Card: 0x1>");
  card.emplace();
  EXPECT_EQ(addresses.renamed(card->description()), "<Card: 0x2>");
}

TEST(StableAddresses, OneInsideAnotherLeavesItAsItWas) {
  StableAddresses outer;
  outer.renamed("0xabc");
  {
    StableAddresses inner;
    EXPECT_EQ(inner.renamed("0xdef"), "0x1");
  }
  EXPECT_EQ(outer.renamed("0xdef 0xabc"), "0x2 0x1");
}

TEST(StableAddresses, NoAddressStays) {
  StableAddresses addresses;
  EXPECT_EQ(addresses.renamed("(0x0) 0x"), "(0x0) 0x");
}

}  // namespace
}  // namespace cardpanels::drive
