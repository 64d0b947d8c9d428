#include "apps/cardprint/StandardInput.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

#include "host/Error.h"

namespace cardpanels::cardprint {

std::string readStandardInput() {
  std::string all;
  std::array<char, 1UL << 16U> block{};
  for (;;) {
    const ssize_t count = read(STDIN_FILENO, block.data(), block.size());
    if (count == 0) return all;
    if (count > 0) {
      all.append(block.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      throw host::Error(std::string(kStandardInputName) + ": " +
                        std::generic_category().message(errno));
    }
  }
}

}  // namespace cardpanels::cardprint
