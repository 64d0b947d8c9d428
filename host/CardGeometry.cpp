#include "host/CardGeometry.h"

#include <cups/ppd.h>

#include <charconv>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

#include "host/JobOptions.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"

namespace cardpanels::host {
namespace {

using platform::equalIgnoringCase;
using platform::isBlank;
using platform::kCustomPrefix;
using platform::startsIgnoringCase;

struct Resolution {
  double across;
  double down;
};

void skipBlanks(std::string_view& text) {
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
}

bool skip(std::string_view& text, std::string_view word) {
  skipBlanks(text);
  if (!startsIgnoringCase(text, word)) return false;
  text.remove_prefix(word.size());
  return true;
}

/// Takes the number that `text` starts with; nothing unless it is above 0.
std::optional<double> takeNumber(std::string_view& text) {
  skipBlanks(text);
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || !std::isfinite(number) || number <= 0) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

/// `300dpi` or `300x600dpi`.
std::optional<Resolution> resolutionNamed(std::string_view name) {
  skip(name, kCustomPrefix);
  const auto across = takeNumber(name);
  const auto down = skip(name, "x") ? takeNumber(name) : across;
  if (!across || !down || !skip(name, "dpi") || !name.empty()) return std::nullopt;
  return Resolution{*across, *down};
}

/// What PostScript code such as `<</HWResolution[300 600]>>setpagedevice` sets.
std::optional<Resolution> resolutionSetBy(std::string_view code) {
  constexpr std::string_view kName = "/HWResolution";
  const std::size_t place = code.find(kName);
  if (place == std::string_view::npos) return std::nullopt;
  code.remove_prefix(place + kName.size());
  if (!skip(code, "[")) return std::nullopt;
  const auto across = takeNumber(code);
  const auto down = takeNumber(code);
  if (!across || !down || !skip(code, "]")) return std::nullopt;
  return Resolution{*across, *down};
}

std::optional<Resolution> resolutionSetBy(const ppd_choice_t* choice) {
  if (choice == nullptr || choice->code == nullptr) return std::nullopt;
  return resolutionSetBy(std::string_view(choice->code));
}

std::string attribute(ppd_file_t* ppd, const char* name) {
  const ppd_attr_t* const found = ppdFindAttr(ppd, name, nullptr);
  return found == nullptr || found->value == nullptr ? std::string() : found->value;
}

std::optional<Resolution> resolutionOf(const JobOptions& job) {
  constexpr const char* kOption = "Resolution";
  if (const auto set = resolutionSetBy(ppdFindMarkedChoice(job.ppd(), kOption))) return set;
  if (job.hasOption(kOption)) {
    if (const auto named = resolutionNamed(job.marked(kOption).value_or(""))) return named;
  }
  cups_array_t* const marked = job.ppd()->marked;
  for (int i = 0; i < cupsArrayCount(marked); ++i) {
    const auto* const choice = static_cast<const ppd_choice_t*>(cupsArrayIndex(marked, i));
    if (const auto set = resolutionSetBy(choice)) return set;
  }
  return resolutionNamed(attribute(job.ppd(), "DefaultResolution"));
}

/// The record of the marked page size; a custom one has the marked width and length.
const ppd_size_t* markedSize(const JobOptions& job) {
  for (const char* key : {"PageSize", "PageRegion"}) {
    if (!job.hasOption(key)) continue;
    std::string name = job.marked(key).value_or("");
    if (startsIgnoringCase(name, kCustomPrefix)) name.replace(0, kCustomPrefix.size(), "Custom.");
    const ppd_size_t* const size = name.empty() ? nullptr : ppdPageSize(job.ppd(), name.c_str());
    if (size != nullptr) return size;
  }
  return nullptr;
}

const ppd_size_t* sizeOf(const JobOptions& job) {
  ppd_file_t* const ppd = job.ppd();
  if (const auto* const size = markedSize(job)) return size;
  const std::string standard = attribute(ppd, "DefaultPageSize");
  const auto* const size = standard.empty() ? nullptr : ppdPageSize(ppd, standard.c_str());
  if (size != nullptr) return size;
  return ppd->num_sizes > 0 ? ppd->sizes : nullptr;
}

bool isGood(const ppd_size_t& size) {
  return std::isfinite(size.width) && std::isfinite(size.length) && size.width > 0 &&
         size.length > 0;
}

/// A size without an imageable area has four zeros for it.
CardGeometry::Margins marginsOf(const ppd_size_t& size) {
  if (size.right <= size.left || size.top <= size.bottom) return {};
  return {size.left, size.length - size.top, size.width - size.right, size.bottom};
}

}  // namespace

CardGeometry cardGeometry(const JobOptions& job) {
  CardGeometry card;
  const ppd_size_t* const size = sizeOf(job);
  if (size != nullptr && isGood(*size)) {
    card.width = size->width;
    card.height = size->length;
    card.margins = marginsOf(*size);
  }
  if (const auto resolution = resolutionOf(job)) {
    card.dotsPerInchAcross = resolution->across;
    card.dotsPerInchDown = resolution->down;
    card.hasResolution = true;
  }
  card.countsFromBottom = equalIgnoringCase(attribute(job.ppd(), "cardpanelsOrigin"), "BottomLeft");
  return card;
}

}  // namespace cardpanels::host
