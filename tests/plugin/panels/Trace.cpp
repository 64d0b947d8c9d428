#include "tests/plugin/panels/Trace.h"

#include <sstream>
#include <string_view>

namespace cardpanels::test {
namespace {

constexpr std::string_view kSelf = " self(";

/// The line without its object; object descriptions of panels hold no `) `.
std::string message(std::string_view line) {
  line.remove_prefix(line.find_first_not_of(' '));
  const std::size_t self = line.find(kSelf);
  const bool hasObject = self <= std::string_view("BEGIN").size();
  if (!hasObject) return std::string(line);
  const std::size_t end = line.find(") ", self);
  return std::string(line.substr(0, self)) + std::string(line.substr(end + 1));
}

}  // namespace

std::string messages(const std::string& trace) {
  std::istringstream lines(trace);
  std::string result;
  for (std::string line; std::getline(lines, line);) result += message(line) + "\n";
  return result;
}

std::string logged(const std::string& trace) {
  constexpr std::string_view kLabel = "LOG ";
  std::istringstream lines(messages(trace));
  std::string result;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(kLabel)) result += line.substr(kLabel.size()) + "\n";
  }
  return result;
}

int depthAfter(const std::string& trace) {
  std::istringstream lines(trace);
  int depth = 0;
  for (std::string line; std::getline(lines, line);) {
    line.erase(0, line.find_first_not_of(' '));
    if (line.starts_with("BEGIN self(")) ++depth;
    if (line.starts_with("END self(")) --depth;
  }
  return depth;
}

}  // namespace cardpanels::test
