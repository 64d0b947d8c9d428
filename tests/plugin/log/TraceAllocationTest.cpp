// What a trace line takes from the heap. A program of its own: it counts every operator new.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <functional>
#include <memory>
#include <new>
#include <string>
#include <utility>

#include "platform/Array.h"
#include "platform/Log.h"
#include "plugin/log/PDELogging.h"

namespace {

std::size_t allocations = 0;

}  // namespace

void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  ++allocations;
  return std::malloc(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }

namespace cardpanels {
namespace {

struct Panel final : platform::Object {
  std::string_view className() const override { return "ThermalLaminatePDE"; }
};

/// Logs while it is described.
struct Talkative final : platform::Object {
  explicit Talkative(const platform::Object& other) : listener(other) {}
  std::string_view className() const override { return "Talkative"; }
  void appendDescription(std::string& out) const override {
    _PDELog(&listener, "described: %i", 1);
    out += "<a text with room for more than a short string has>";
  }
  const platform::Object& listener;
};

class TraceAllocation : public testing::Test {
 protected:
  TraceAllocation()
      : before_(platform::setLogSink(
            platform::fileDescriptorSink(descriptor_ = open("/dev/null", O_WRONLY | O_CLOEXEC)))) {}
  ~TraceAllocation() override {
    platform::setLogSink(before_);
    close(descriptor_);
  }

  /// What 100 lines take once buffers have grown.
  static std::size_t allocationsOf(const std::function<void()>& writeLine) {
    writeLine();
    const std::size_t start = allocations;
    for (int i = 0; i < 100; ++i) writeLine();
    return allocations - start;
  }

  const Panel panel;

 private:
  int descriptor_ = -1;
  std::shared_ptr<platform::LogSink> before_;
};

const std::string kText = "1.25in 1.25in 1.25in 1.25in, more than a short string";

TEST_F(TraceAllocation, IsSeenByTheCounter) {
  EXPECT_EQ(allocationsOf([] { std::string(kText).shrink_to_fit(); }), 100U);
}

TEST_F(TraceAllocation, IsNoneForTexts) {
  const platform::Text text = kText;
  EXPECT_EQ(allocationsOf([&] {
              _PDELog(&panel, "new choice is %@/%@ (%s) %i", kText, text, kText.c_str(), 4711);
            }),
            0U);
}

TEST_F(TraceAllocation, IsNoneForTextsThatAreNotASCII) {
  EXPECT_EQ(
      allocationsOf([&] { _PDELog(&panel, "%@", std::string_view("Größe – 日本 – “Schwarz”")); }),
      0U);
}

TEST_F(TraceAllocation, IsNoneForBeginAndEnd) {
  EXPECT_EQ(allocationsOf([&] {
              _PDEProlog(&panel, "setAreaUI:(%@)(%@)", kText, kText);
              _PDEEpilog(&panel, "setAreaUI:(%@)(%@)", kText, kText);
            }),
            0U);
}

TEST_F(TraceAllocation, IsNoneForWidths) {
  const platform::Object* const self = &panel;
  EXPECT_EQ(allocationsOf(
                [&] { _PDELog(&panel, "%60@|%-60s|%20p|%040i", self, kText.c_str(), self, -7); }),
            0U);
}

TEST_F(TraceAllocation, IsNoneForAnObjectsDescription) {
  const auto keys = std::make_shared<platform::StringArray>();
  for (int i = 0; i < 14; ++i) keys->append(kText);
  EXPECT_EQ(allocationsOf([&] { _PDELog(&panel, "%@ %p %@", keys, keys, keys); }), 0U);
}

TEST_F(TraceAllocation, IsNoneForALineInsideALine) {
  const Talkative talkative(panel);
  EXPECT_EQ(allocationsOf([&] { _PDELog(&talkative, "%@", &talkative); }), 0U);
}

}  // namespace
}  // namespace cardpanels
