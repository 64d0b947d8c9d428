#include "host/MediaOption.h"

#include <cups/pwg.h>

#include <array>
#include <charconv>
#include <cmath>
#include <string_view>
#include <utility>

#include "host/CustomValue.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/CustomPrefix.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::equalIgnoringCase;
using platform::filled;
using platform::startsIgnoringCase;

constexpr const char* kMedia = "media";

/// A keyword of PWG's and how PPDs name the same, or begin to.
struct Standard {
  std::string_view keyword;
  std::string_view choice;
};

constexpr std::array<Standard, 5> kSources{{{"auto", "Auto"},
                                            {"main", "Cassette"},
                                            {"top", "Upper"},
                                            {"bottom", "Lower"},
                                            {"by-pass-tray", "Multipurpose"}}};
constexpr std::array<Standard, 4> kTypes{{{"auto", "Auto"},
                                          {"stationery", "Plain"},
                                          {"cardstock", "Card"},
                                          {"photographic-glossy", "Glossy"}}};

std::vector<std::string> partsOf(const std::string& value) {
  std::vector<std::string> parts(1);
  for (const char c : value) {
    if (c == ',') {
      parts.emplace_back();
    } else if (c != ' ') {
      parts.back() += c;
    }
  }
  return parts;
}

const pwg_media_t* standardSize(const std::string& name) {
  if (const auto* const media = pwgMediaForPWG(name.c_str())) return media;
  return pwgMediaForLegacy(name.c_str());
}

bool areEqual(double points, int hundredthsOfMillimeters) {
  constexpr double kTolerance = 50;  // hundredths of a millimeter
  return std::abs(points * 2540 / 72 - hundredthsOfMillimeters) < kTolerance;
}

/// PWG names a card on its short side, PPDs often on the long one.
std::string sizeOf(ppd_file_t* ppd, int width, int length) {
  for (const ppd_size_t& size : sizesOf(ppd)) {
    if (areEqual(size.width, width) && areEqual(size.length, length)) return size.name;
  }
  return {};
}

/// A length in hundredths of a millimeter, in millimeters.
std::string millimeters(int length) {
  std::array<char, 16> digits{};
  auto* const end = std::to_chars(digits.data(), digits.data() + digits.size(), length / 100.0).ptr;
  return {digits.data(), end};
}

std::string customSize(ppd_file_t* ppd, const ppd_option_t& option, int width, int length) {
  try {
    const std::string value = millimeters(width) + "x" + millimeters(length) + "mm";
    return checkedCustomValue(ppd, option, std::string(platform::kCustomPrefix) + value);
  } catch (const Error&) {
    return {};
  }
}

/// The choice of page size that `part` names; empty for none.
std::string pageSizeFor(ppd_file_t* ppd, const ppd_option_t& option, const std::string& part) {
  const ppd_choice_t* const listed = listedChoice(option, part);
  if (listed != nullptr && listed != customChoice(option)) return listed->choice;
  if (startsIgnoringCase(part, platform::kCustomPrefix)) return part;
  const pwg_media_t* const size = standardSize(part);
  if (size == nullptr) return {};
  for (const auto& [width, length] :
       {std::pair(size->width, size->length), std::pair(size->length, size->width)}) {
    std::string name = sizeOf(ppd, width, length);
    if (!name.empty()) return name;
  }
  return customSize(ppd, option, size->width, size->length);
}

/// Without what parts words: `tray-1` is PWG's way to write `Tray1`.
std::string plain(std::string_view text) {
  std::string all;
  for (const char c : text) {
    if (c != '-' && c != '_' && c != '.') all += c;
  }
  return all;
}

/// The choice of source or type that `part` names; empty for none.
template <std::size_t count>
std::string choiceFor(const ppd_option_t& option, const std::string& part,
                      const std::array<Standard, count>& standards) {
  for (const ppd_choice_t& choice : choicesOf(option)) {
    if (equalIgnoringCase(plain(choice.choice), plain(part))) return choice.choice;
  }
  for (const Standard& each : standards) {
    if (!equalIgnoringCase(each.keyword, part)) continue;
    for (const ppd_choice_t& choice : choicesOf(option)) {
      if (startsIgnoringCase(choice.choice, each.choice)) return choice.choice;
    }
  }
  return {};
}

}  // namespace

bool isMedia(ppd_file_t* ppd, const std::string& key) {
  return equalIgnoringCase(key, kMedia) && findOption(ppd, kMedia) == nullptr &&
         findOption(ppd, kPageSize) != nullptr;
}

bool isOfPPD(ppd_file_t* ppd, const std::string& key) {
  return findOption(ppd, key) != nullptr || isMedia(ppd, key);
}

std::vector<Option> optionsOfMedia(ppd_file_t* ppd, const std::string& value) {
  const ppd_option_t& size = *findOption(ppd, kPageSize);
  OptionList options;
  for (const std::string& part : partsOf(value)) {
    bool known = false;
    const auto set = [&](const ppd_option_t& option, const std::string& choice) {
      if (choice.empty()) return;
      options.set({option.keyword, choice});
      known = true;
    };
    set(size, pageSizeFor(ppd, size, part));
    if (const auto* const source = findOption(ppd, "InputSlot")) {
      set(*source, choiceFor(*source, part, kSources));
    }
    if (const auto* const type = findOption(ppd, "MediaType")) {
      set(*type, choiceFor(*type, part, kTypes));
    }
    if (known) continue;
    throw Error(filled(_("This printer has no card size, source or type {name}."),
                       {{"name", platform::inQuotes(platform::onOneLine(part))}}));
  }
  return options.options();
}

}  // namespace cardpanels::host
