#pragma once

namespace cardpanels::test {

/// Where a widget is in its window, in pixels.
struct Place {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

/// How far `right` is from `left`, beside it.
inline int across(const Place& left, const Place& right) { return right.left - left.right; }

/// How far `lower` is from `upper`, below it.
inline int down(const Place& upper, const Place& lower) { return lower.top - upper.bottom; }

/// Whether both share some height of the window.
inline bool areInOneRow(const Place& one, const Place& other) {
  return one.top < other.bottom && other.top < one.bottom;
}

}  // namespace cardpanels::test
