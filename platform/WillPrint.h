#pragma once

namespace cardpanels::platform {

/// What a panel offers that wants to know of printing.
class WillPrint {
 public:
  WillPrint() = default;
  WillPrint(const WillPrint&) = delete;
  WillPrint& operator=(const WillPrint&) = delete;
  virtual ~WillPrint();

  /// Called on Print before values are saved, and whenever typed text shall be stored. Always true.
  virtual bool shouldPrint() = 0;
};

}  // namespace cardpanels::platform
