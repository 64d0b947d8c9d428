#include "apps/pde-drive/StableAddresses.h"

#include <array>
#include <charconv>
#include <cstddef>

#include "platform/Format.h"

namespace cardpanels::drive {
namespace {

std::string hexadecimal(std::uintptr_t number) {
  std::array<char, 2 * sizeof number> digits{};
  const auto end =
      std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr - digits.data();
  return "0x" + std::string(digits.data(), static_cast<std::size_t>(end));
}

}  // namespace

StableAddresses* StableAddresses::newest_ = nullptr;

StableAddresses::StableAddresses()
    : older_(newest_), observerBefore_(platform::setEndObserver(objectEnds)) {
  newest_ = this;
}

StableAddresses::~StableAddresses() {
  newest_ = older_;
  platform::setEndObserver(observerBefore_);
}

void StableAddresses::objectEnds(const void* address) {
  const std::string text = platform::addressText(address);
  for (auto* each = newest_; each != nullptr; each = each->older_) each->names_.erase(text);
}

std::string StableAddresses::renamed(std::string_view line) {
  constexpr std::string_view kPrefix = "0x";
  std::string result;
  for (;;) {
    const std::size_t start = line.find(kPrefix);
    if (start == std::string_view::npos) return result.append(line);
    std::size_t end = line.find_first_not_of("0123456789abcdef", start + kPrefix.size());
    if (end == std::string_view::npos) end = line.size();
    const std::string_view address = line.substr(start, end - start);
    result.append(line.substr(0, start));
    if (address == kPrefix || address == "0x0") {
      result.append(address);
    } else {
      const auto [entry, isNew] = names_.try_emplace(std::string(address));
      if (isNew) entry->second = hexadecimal(++count_);
      result.append(entry->second);
    }
    line.remove_prefix(end);
  }
}

}  // namespace cardpanels::drive
