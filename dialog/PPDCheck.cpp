#include "dialog/PPDCheck.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "dialog/CardAreas.h"
#include "dialog/PPDCheckRules.h"
#include "host/CardKeys.h"
#include "host/CupsTest.h"
#include "host/PPDRecords.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"

namespace cardpanels::dialog {
namespace {

using platform::_;

/// Whether a remark is about the options' names, which are not the writer's to choose.
bool isOfOurNames(const std::string& remark) {
  constexpr std::string_view kPrefix = " shares a common prefix with ";
  const std::size_t place = remark.find(kPrefix);
  if (place == std::string::npos) return false;
  std::vector<std::string> known = allAreaKeys();
  known.insert(known.end(), std::begin(host::kCardKeys), std::end(host::kCardKeys));
  const std::string other = remark.substr(
      place + kPrefix.size(), remark.find(' ', place + kPrefix.size()) - place - kPrefix.size());
  return std::count(known.begin(), known.end(), remark.substr(0, place)) > 0 &&
         std::count(known.begin(), known.end(), other) > 0;
}

void askCups(CheckedPPD& ppd, const std::string& path) {
  const auto remarks = host::testedByCups(path);
  if (!remarks) {
    ppd.tell(0, Gravity::fact,
             _("cupstestppd is not installed, so the rules of CUPS are not checked."));
    return;
  }
  bool isSilent = true;
  for (const host::CupsRemark& each : *remarks) {
    if (!each.isError && isOfOurNames(each.text)) continue;
    isSilent = false;
    ppd.tell(0, each.isError ? Gravity::error : Gravity::fact, "cupstestppd: " + each.text);
  }
  if (isSilent) ppd.tell(0, Gravity::fact, _("cupstestppd finds nothing wrong."));
}

}  // namespace

const ppd_option_t* CheckedPPD::option(const std::string& key) const {
  return host::findOption(ppd(), key);
}

std::pair<std::vector<std::string>, std::vector<std::string>> CheckedPPD::divided(
    const std::vector<std::string>& keys) const {
  std::pair<std::vector<std::string>, std::vector<std::string>> both;
  for (const std::string& each : keys) {
    (option(each) != nullptr ? both.first : both.second).push_back(each);
  }
  return both;
}

std::vector<std::string> CheckedPPD::cardKeys() const {
  std::vector<std::string> keys(std::begin(host::kCardKeys), std::end(host::kCardKeys));
  const auto areas = allAreaKeys();
  keys.insert(keys.end(), areas.begin(), areas.end());
  return divided(keys).first;
}

const host::PPDStatement* CheckedPPD::statement(std::string_view keyword,
                                                std::string_view option) const {
  const auto found =
      std::find_if(statements().begin(), statements().end(), [&](const host::PPDStatement& each) {
        return platform::equalIgnoringCase(each.keyword, keyword) &&
               platform::equalIgnoringCase(each.option, option);
      });
  return found == statements().end() ? nullptr : &*found;
}

int CheckedPPD::lineOf(const std::string& key) const {
  for (const host::PPDStatement& each : statements()) {
    if (platform::equalIgnoringCase(host::openedOption(each), key)) return each.line;
  }
  return 0;
}

std::vector<std::string> allAreaKeys() {
  std::vector<std::string> all;
  for (const AreaSide& side : areaSides()) {
    const auto keys = areaKeys(side);
    all.insert(all.end(), keys.begin(), keys.end());
  }
  return all;
}

std::string listed(const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& each : words) list.append(list.empty() ? "" : ", ").append(each);
  return list;
}

std::string_view withoutQuotes(std::string_view value) {
  value = platform::trimmed(value);
  if (value.starts_with('"')) value.remove_prefix(1);
  return platform::trimmed(value.substr(0, value.find('"')));
}

std::vector<std::string_view> words(std::string_view text) {
  std::vector<std::string_view> all;
  for (text = platform::trimmed(text); !text.empty(); text = platform::trimmed(text)) {
    const auto* const end = std::find_if(text.begin(), text.end(), platform::isBlank);
    all.emplace_back(text.begin(), end);
    text.remove_prefix(all.back().size());
  }
  return all;
}

std::vector<Finding> checkPPD(const std::string& path) {
  CheckedPPD ppd(path);
  for (const auto& check : {checkKeywords, checkPositions, checkAreas, checkConstraints,
                            checkDefaults, checkTranslations}) {
    check(ppd);
  }
  std::vector<Finding> found = std::move(ppd.findings());
  std::stable_sort(found.begin(), found.end(),
                   [](const Finding& a, const Finding& b) { return a.line < b.line; });
  ppd.findings().clear();
  checkPanels(ppd);
  auto& all = ppd.findings();
  std::move(found.begin(), found.end(), std::back_inserter(all));
  askCups(ppd, path);
  return std::exchange(all, {});
}

}  // namespace cardpanels::dialog
