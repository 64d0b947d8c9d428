#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "platform/Object.h"

namespace cardpanels::drive {

/// Gives addresses names that are the same in every run: `0x1`, `0x2`, … in hexadecimal, in the
/// order in which they first appear. An object that ends takes its name with it, so that another
/// one at the same place gets its own. Those that live at a time end in reverse order.
class StableAddresses {
 public:
  StableAddresses();
  ~StableAddresses();
  StableAddresses(const StableAddresses&) = delete;
  StableAddresses& operator=(const StableAddresses&) = delete;

  /// `line` with each address in it renamed; `0x0` stays.
  std::string renamed(std::string_view line);

 private:
  static void objectEnds(const void* address);

  static StableAddresses* newest_;
  StableAddresses* older_;
  platform::EndObserver observerBefore_;
  std::map<std::string, std::string, std::less<>> names_;
  std::uintptr_t count_ = 0;
};

}  // namespace cardpanels::drive
