// Tries area strings: any text to parse, and its lines as measurements to join.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "platform/Log.h"
#include "plugin/panels/AreaStrings.h"

namespace {

using cardpanels::fuzz::require;

constexpr std::size_t kSlotSize = 21;
using Parts = std::array<std::string, 4>;

struct NoSink final : cardpanels::platform::LogSink {
  void writeLine(std::string_view /*line*/) override {}
};

Parts parsed(const char* area) {
  std::array<const char*, 4> slots{};
  cardpanels::parseArea(area, slots[0], slots[1], slots[2], slots[3]);
  Parts parts;
  for (std::size_t k = 0; k < slots.size(); ++k) {
    require(slots[k] == slots[0] + k * kSlotSize, "the slots lie side by side");
    require(std::memchr(slots[k], '\0', kSlotSize) != nullptr, "a slot ends within its 21 bytes");
    parts[k] = slots[k];
  }
  return parts;
}

std::string joined(const Parts& parts) {
  return cardpanels::formatArea(parts[0].c_str(), parts[1].c_str(), parts[2].c_str(),
                                parts[3].c_str());
}

void tryParsing(const std::string& area) {
  const Parts parts = parsed(area.c_str());
  for (const std::string& part : parts) {
    require(part.empty() == parts[0].empty(), "a parse is all or nothing");
  }
  require(parsed(joined(parts).c_str()) == parts, "what was parsed parses again when joined");
}

void tryJoining(const std::string& text) {
  std::array<std::optional<std::string>, 4> parts;
  std::size_t start = 0;
  for (auto& part : parts) {
    if (start > text.size()) break;
    const std::size_t end = std::min(text.find('\n', start), text.size());
    part = text.substr(start, end - start);
    start = end + 1;
  }
  const auto bytes = [&](std::size_t k) { return parts[k] ? parts[k]->c_str() : nullptr; };
  const std::string area = cardpanels::formatArea(bytes(0), bytes(1), bytes(2), bytes(3));
  std::string expected;
  bool allEmpty = true;
  bool allFit = true;
  for (std::size_t k = 0; k < parts.size(); ++k) {
    const std::string_view part = bytes(k) != nullptr ? bytes(k) : "";
    allEmpty = allEmpty && part.empty();
    allFit = allFit && part.size() < kSlotSize;
    expected += k > 0 ? " " : "";
    expected += part.empty() ? "0px" : part;
  }
  require(area == (allFit && !allEmpty ? expected : ""), "four parts become one text");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/) {
  cardpanels::platform::setLogSink(std::make_shared<NoSink>());
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  tryParsing(text);
  tryJoining(text);
  return 0;
}
