#include "dialog/BesideOrAbove.h"

#include <algorithm>
#include <utility>

namespace cardpanels::dialog {
namespace {

constexpr int kSpacing = 12;

}  // namespace

BesideOrAbove::BesideOrAbove(std::optional<PanelPart> first, PanelPart second)
    : first_(std::move(first)), second_(std::move(second)) {}

int BesideOrAbove::leastWidth() const {
  return first_ ? std::max(first_->leastWidth, second_.leastWidth) : second_.leastWidth;
}

int BesideOrAbove::naturalWidth() const {
  return second_.naturalWidth + (first_ ? first_->naturalWidth + kSpacing : 0);
}

/// How wide the second is where both stand beside each other; 0 where they do not.
int BesideOrAbove::widthBeside(int width) const {
  const int room = width - kSpacing - first_->naturalWidth;
  return room >= second_.leastWidth ? std::min(room, second_.naturalWidth) : 0;
}

int BesideOrAbove::heightFor(int width) const {
  const int wide = std::max(width, leastWidth());
  if (!first_) return second_.heightFor(wide);
  if (const int beside = widthBeside(wide)) {
    return std::max(first_->heightFor(wide - kSpacing - beside), second_.heightFor(beside));
  }
  return second_.heightFor(wide) + kSpacing + first_->heightFor(wide);
}

BesideOrAbove::Places BesideOrAbove::placesIn(int width, int height, bool isRightToLeft) const {
  if (!first_) return {{}, {0, 0, width, height}};
  if (const int beside = widthBeside(width)) {
    const int wide = width - kSpacing - beside;
    if (isRightToLeft) return {{kSpacing + beside, 0, wide, height}, {0, 0, beside, height}};
    return {{0, 0, wide, height}, {kSpacing + wide, 0, beside, height}};
  }
  const int above = second_.heightFor(std::max(width, second_.leastWidth));
  const int top = above + kSpacing;
  return {{0, top, width, std::max(1, height - top)}, {0, 0, width, above}};
}

}  // namespace cardpanels::dialog
