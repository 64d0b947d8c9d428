#include "host/PPDFile.h"

#include <cups/cups.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <set>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "host/ChoiceAreas.h"
#include "host/Error.h"
#include "host/PPDRecords.h"
#include "host/PPDText.h"
#include "platform/ASCII.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr std::size_t kLargestPPD = 64UL << 20U;  // a real one has 2 MiB at most

struct CupsFileCloser {
  void operator()(cups_file_t* file) const { cupsFileClose(file); }
};
using CupsFile = std::unique_ptr<cups_file_t, CupsFileCloser>;

std::string systemReason(int number) { return std::generic_category().message(number); }

CupsFile opened(const std::string& path, const std::string& name) {
  struct stat status {};
  if (stat(path.c_str(), &status) != 0) throw Error(name + ": " + systemReason(errno));
  if (S_ISDIR(status.st_mode)) throw Error(name + ": " + systemReason(EISDIR));
  if (!S_ISREG(status.st_mode)) throw Error(name + ": " + _("This is not a regular file."));
  CupsFile file(cupsFileOpen(path.c_str(), "r"));
  if (!file) throw Error(name + ": " + systemReason(errno));
  return file;
}

/// The length that a gzip file claims for its contents.
std::uint32_t lengthInTrailer(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  file.seekg(-4, std::ios::end);
  std::array<char, 4> bytes{};
  file.read(bytes.data(), bytes.size());
  std::uint32_t length = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) {
    length = length << 8U | static_cast<unsigned char>(bytes.at(i));
  }
  return length;
}

std::string readAll(cups_file_t* file, const std::string& path, const std::string& name) {
  std::string bytes;
  std::array<char, 1UL << 16U> buffer{};
  ssize_t count = 0;
  errno = 0;  // cupsFileRead answers -1 for an error and for the end alike
  while ((count = cupsFileRead(file, buffer.data(), buffer.size())) > 0) {
    bytes.append(buffer.data(), static_cast<std::size_t>(count));
    if (bytes.size() > kLargestPPD)
      throw Error(name + ": " + _("The file is too large for a PPD."));
  }
  // libcups takes a compressed file that is cut off for a complete one.
  const bool compressed = cupsFileCompression(file) != CUPS_FILE_NONE;
  if (compressed && (errno != 0 || lengthInTrailer(path) != bytes.size())) {
    throw Error(name + ": " + _("The compressed file is damaged or cut off."));
  }
  if (errno != 0) throw Error(name + ": " + systemReason(errno));
  return bytes;
}

PPDFile loaded(cups_file_t* file, const std::string& name) {
  cupsFileRewind(file);
  PPDFile ppd(ppdOpen2(file));
  if (ppd) return ppd;
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  throw Error::inLine(name, std::max(line, 1), ppdErrorString(status));
}

std::string loweredText(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), platform::lowered);
  return text;
}

/// Where the option `keyword`, in whatever case, is opened.
std::vector<int> linesOf(std::string_view keyword, const std::vector<PPDStatement>& statements) {
  std::vector<int> lines;
  for (const PPDStatement& each : statements) {
    if (platform::equalIgnoringCase(openedOption(each), keyword)) lines.push_back(each.line);
  }
  return lines;
}

/// Checks what can only be seen in the records, in the user's language.
class RecordChecker {
 public:
  RecordChecker(const std::vector<PPDStatement>& statements, const std::string& name)
      : statements_(statements), name_(name) {}

  void check(ppd_file_t* ppd) const {
    const auto options = allOptions(ppd);
    if (options.empty()) throw Error(name_ + ": " + _("The PPD has no options."));
    std::set<std::string> keywords;
    for (const auto* option : options) {
      if (!keywords.insert(loweredText(option->keyword)).second) failTwice(option->keyword);
      check(*option);
    }
  }

 private:
  /// Two records of one keyword, in groups of their own or in other letters: libcups and panels
  /// would find one of them, and what is marked in one would not show in the other.
  [[noreturn]] void failTwice(const std::string& keyword) const {
    const auto lines = linesOf(keyword, statements_);
    if (lines.size() < 2)
      fail(keyword, filled(_("The option {option} stands there twice."), {{"option", keyword}}));
    throw Error::inLine(name_, lines.back(),
                        filled(_("The option {option} stands in line {line} already."),
                               {{"option", keyword}, {"line", std::to_string(lines.front())}}));
  }

  void check(const ppd_option_t& option) const {
    const std::string keyword = option.keyword;
    if (option.num_choices == 0) {
      fail(keyword, filled(_("The option {option} has no choices."), {{"option", keyword}}));
    }
    checkText(option.text, keyword, keyword);
    for (int i = 0; i < option.num_choices; ++i) {
      const ppd_choice_t& choice = option.choices[i];
      checkText(choice.text, keyword, keyword + " " + choice.choice);
    }
  }

  /// libcups cuts a text to the room in its record, perhaps inside a character.
  void checkText(const char* text, const std::string& keyword, const std::string& subject) const {
    if (platform::isUTF8(text)) return;
    const bool cut = std::strlen(text) == sizeof(ppd_choice_t::text) - 1;
    fail(keyword, filled(cut ? _("The text of {subject} is too long: it is cut inside a character.")
                             : _("The text of {subject} is not UTF-8."),
                         {{"subject", subject}}));
  }

  [[noreturn]] void fail(const std::string& keyword, const std::string& reason) const {
    const auto lines = linesOf(keyword, statements_);
    throw Error(name_ + ":" + (lines.empty() ? "" : std::to_string(lines.front()) + ":") + " " +
                reason);
  }

  const std::vector<PPDStatement>& statements_;
  const std::string& name_;
};

}  // namespace

PPDFile openPPD(const std::string& path, const std::string& shownAs) {
  return readPPD(path, shownAs).ppd;
}

ReadPPD readPPD(const std::string& path, const std::string& shownAs) {
  const std::string& name = shownAs.empty() ? path : shownAs;
  const CupsFile file = opened(path, name);
  auto statements = ppdStatements(readAll(file.get(), path, name), name);
  PPDFile ppd = loaded(file.get(), name);
  checkStatements(statements, name);
  ppdLocalize(ppd.get());
  RecordChecker(statements, name).check(ppd.get());
  checkCardLines(statements, ppd.get(), name);
  return {std::move(statements), std::move(ppd)};
}

}  // namespace cardpanels::host
