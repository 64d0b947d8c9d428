#pragma once

#include <sys/types.h>

namespace cardpanels::test {

/// A display in memory for as long as this lives, which GTK opens from then on in this process and
/// in those that it starts. Needs Xvfb; throws without.
class Display {
 public:
  Display();
  ~Display();
  Display(const Display&) = delete;
  Display& operator=(const Display&) = delete;

 private:
  pid_t server_ = 0;
};

}  // namespace cardpanels::test
