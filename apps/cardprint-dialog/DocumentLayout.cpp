#include "apps/cardprint-dialog/DocumentLayout.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "platform/ASCII.h"

namespace cardpanels::cardprint {
namespace {

using host::OptionList;
using platform::equalIgnoringCase;

constexpr double kUsualResolution = 200;  // of an image that names none

// Of the attribute orientation-requested.
constexpr int kPortrait = 3;
constexpr int kLandscape = 4;
constexpr int kReverseLandscape = 5;
constexpr int kReversePortrait = 6;

enum class Fit { all, fill, larger, natural };

bool isOn(const OptionList& options, const char* key) {
  const auto value = options.value(key);
  return value && (value->empty() || equalIgnoringCase(*value, "true") ||
                   equalIgnoringCase(*value, "yes") || equalIgnoringCase(*value, "on"));
}

int numberOf(const OptionList& options, const char* key) {
  const std::string text = options.value(key).value_or("");
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

/// 0 where the job leaves it to the document.
int orientationOf(const OptionList& options) {
  const int number = numberOf(options, "orientation-requested");
  if (number >= kPortrait && number <= kReversePortrait) return number;
  return isOn(options, "landscape") ? kReverseLandscape : 0;
}

bool liesOtherWay(const Extent& page, const Extent& card) {
  return page.width != page.height && (page.width > page.height) != (card.width > card.height);
}

Extent turned(const Extent& extent, int turns) {
  return turns % 2 == 0 ? extent : Extent{extent.height, extent.width};
}

Extent scaled(const Extent& extent, double factor) {
  return {extent.width * factor, extent.height * factor};
}

double scaleOf(Fit fit, const Extent& page, const Extent& card) {
  const double across = card.width / page.width;
  const double down = card.height / page.height;
  switch (fit) {
    case Fit::all: return std::min(across, down);
    case Fit::fill: return std::max(across, down);
    case Fit::larger: return std::min({across, down, 1.0});
    case Fit::natural: break;
  }
  return 1;
}

Fit pageFit(const OptionList& options) {
  const std::string scaling = options.value("print-scaling").value_or("");
  if (isOn(options, "fill") || equalIgnoringCase(scaling, "fill")) return Fit::fill;
  if (isOn(options, "crop-to-fit") || equalIgnoringCase(scaling, "none")) return Fit::natural;
  const bool isFitted = isOn(options, "fit-to-page") || isOn(options, "fitplot");
  return isFitted || equalIgnoringCase(scaling, "fit") ? Fit::all : Fit::larger;
}

/// A page that lies the other way is turned in any case.
int pageTurns(int orientation, bool liesOtherWay) {
  if (!liesOtherWay)
    return orientation == kReverseLandscape || orientation == kReversePortrait ? 2 : 0;
  return orientation == kLandscape || orientation == kReversePortrait ? 1 : 3;
}

/// What an image has the filters do with it.
struct ImageScaling {
  Fit fit = Fit::all;
  double factor = 1;       // besides
  bool isSpread = true;    // over more cards, where it is larger
  Extent resolution = {};  // instead of its own
};

bool isLarger(const Extent& one, const Extent& other) {
  return one.width > other.width || one.height > other.height;
}

ImageScaling scalingOf(const OptionList& options, const Extent& pixels, const Extent& card) {
  constexpr ImageScaling kCropped{Fit::natural, 1, false};
  constexpr ImageScaling kFilled{Fit::fill, 1, false};
  if (const auto scaling = options.value("print-scaling")) {
    const bool isLarge = isLarger(pixels, card);
    if (equalIgnoringCase(*scaling, "fill")) return kFilled;
    if (equalIgnoringCase(*scaling, "fit")) return {};
    if (equalIgnoringCase(*scaling, "auto")) return isLarge ? kFilled : kCropped;
    if (equalIgnoringCase(*scaling, "auto-fit")) return isLarge ? ImageScaling{} : kCropped;
    return kCropped;
  }
  if (isOn(options, "fill")) return kFilled;
  if (isOn(options, "crop-to-fit")) return kCropped;
  if (const auto ppi = options.value("ppi")) {
    char* end = nullptr;
    const double across = std::strtod(ppi->c_str(), &end);
    const double down = *end == 'x' ? std::strtod(end + 1, nullptr) : across;
    if (across > 0 && down > 0) return {Fit::natural, 1, true, {across, down}};
  }
  if (const int percent = numberOf(options, "scaling"); percent > 0) {
    return {Fit::all, percent / 100.0};
  }
  for (const char* key : {"fit-to-page", "fitplot"}) {
    if (options.value(key)) return {isOn(options, key) ? Fit::all : Fit::natural};
  }
  if (const int percent = numberOf(options, "natural-scaling"); percent > 0) {
    return {Fit::natural, percent / 100.0};
  }
  return {};
}

/// Whether an image of this size shows more of itself when it is turned.
bool showsMoreTurned(const Extent& size, const Extent& card) {
  const auto shown = [&card](double width, double height) {
    return std::min(card.width, width) * std::min(card.height, height);
  };
  return shown(size.width, size.height) < shown(size.height, size.width);
}

int imageTurns(int orientation, bool isTurnedBest) {
  switch (orientation) {
    case kPortrait: return 0;
    case kLandscape: return 1;
    case kReverseLandscape: return 3;
    case kReversePortrait: return 2;
    default: return isTurnedBest ? 1 : 0;
  }
}

/// Takes a number off the start of `text`; `usual` where there is none.
unsigned takeNumber(std::string_view& text, unsigned usual) {
  unsigned number = usual;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
  return number;
}

/// Whether `page`, from 1, is in ranges such as "1-4,7,9-".
bool isInRanges(std::string_view ranges, unsigned page) {
  while (!ranges.empty()) {
    std::string_view range = ranges.substr(0, ranges.find(','));
    ranges.remove_prefix(std::min(range.size() + 1, ranges.size()));
    const unsigned first = takeNumber(range, 1);
    unsigned last = first;
    if (!range.empty() && range.front() == '-') {
      range.remove_prefix(1);
      last = takeNumber(range, page);
    }
    if (page >= first && page <= last) return true;
  }
  return false;
}

}  // namespace

DocumentLayout layoutOfPage(const Extent& page, const Extent& card,
                            const std::vector<host::Option>& attributes) {
  const OptionList options(attributes);
  DocumentLayout layout;
  layout.turns = pageTurns(orientationOf(options), liesOtherWay(page, card));
  layout.size = scaled(page, scaleOf(pageFit(options), page, turned(card, layout.turns)));
  return layout;
}

DocumentLayout layoutOfImage(const Extent& pixels, double resolution, const Extent& card,
                             const std::vector<host::Option>& attributes) {
  const OptionList options(attributes);
  const ImageScaling scaling = scalingOf(options, pixels, card);
  Extent ppi = scaling.resolution;
  if (ppi.width == 0) ppi.width = ppi.height = resolution > 0 ? resolution : kUsualResolution;
  const Extent natural{pixels.width * 72 / ppi.width * scaling.factor,
                       pixels.height * 72 / ppi.height * scaling.factor};
  const bool isFree = scaling.fit == Fit::natural && scaling.isSpread;
  const bool isTurnedBest = isFree ? showsMoreTurned(natural, card) : liesOtherWay(pixels, card);
  DocumentLayout layout;
  layout.turns = imageTurns(orientationOf(options), isTurnedBest);
  const Extent room = turned(card, layout.turns);
  layout.size = scaling.fit == Fit::natural
                    ? natural
                    : scaled(pixels, scaleOf(scaling.fit, pixels, room) * scaling.factor);
  if (!scaling.isSpread) return layout;
  constexpr double kRounding = 0.01;
  layout.columns =
      std::max(1, static_cast<int>(std::ceil(layout.size.width / room.width - kRounding)));
  layout.rows =
      std::max(1, static_cast<int>(std::ceil(layout.size.height / room.height - kRounding)));
  return layout;
}

std::array<int, 2> firstPages(int pages, const std::vector<host::Option>& attributes) {
  const OptionList options(attributes);
  const auto ranges = options.value("page-ranges");
  const std::string set = options.value("page-set").value_or("all");
  std::array<int, 2> first{-1, -1};
  auto* next = first.begin();
  for (int page = 1; page <= pages && next != first.end(); ++page) {
    if (ranges && !isInRanges(*ranges, static_cast<unsigned>(page))) continue;
    if (equalIgnoringCase(set, page % 2 == 0 ? "odd" : "even")) continue;
    *next++ = page - 1;
  }
  return first;
}

}  // namespace cardpanels::cardprint
