#pragma once

#include <sys/types.h>

namespace cardpanels::bench {

/// A display in memory for as long as this lives, where the caller has none. Needs Xvfb.
class Display {
 public:
  Display();
  ~Display();
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

 private:
  pid_t server_ = 0;
};

}  // namespace cardpanels::bench
