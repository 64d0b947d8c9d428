#include "apps/pde-drive/StableAddresses.h"

#include <gtest/gtest.h>

namespace cardpanels::drive {
namespace {

TEST(StableAddresses, AreNumberedByFirstAppearance) {
  StableAddresses addresses;
  EXPECT_EQ(addresses.renamed("<A: 0x7f10> <B: 0x7f20>"), "<A: 0x1> <B: 0x2>");
  EXPECT_EQ(addresses.renamed("0x7f20 0x7f30 0x7f10"), "0x2 0x3 0x1");
}

TEST(StableAddresses, NoAddressStays) {
  StableAddresses addresses;
  EXPECT_EQ(addresses.renamed("(0x0) 0x"), "(0x0) 0x");
}

}  // namespace
}  // namespace cardpanels::drive
