#pragma once

#include <cstddef>
#include <string>

namespace cardpanels::test {

inline bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// A trace's lines without indentation and without the object that they are about:
/// `LOG initializing laminate`.
std::string messages(const std::string& trace);

/// The texts of a trace's LOG lines.
std::string logged(const std::string& trace);

/// The depth after a trace that starts at 0: BEGIN and END of lines about an object, counted.
int depthAfter(const std::string& trace);

}  // namespace cardpanels::test
