#include "apps/pde-drive/Script.h"

#include <cstdint>

namespace cardpanels::drive {
namespace {

constexpr std::string_view kBlanks = " \t\r";

bool isBlank(char c) { return kBlanks.find(c) != std::string_view::npos; }

/// Where the word at `start` ends; a quoted part of it keeps its blanks and number signs.
std::size_t endOfWord(std::string_view line, std::size_t start) {
  bool inQuotes = false;
  std::size_t i = start;
  for (; i < line.size() && (inQuotes || !isBlank(line[i])); ++i) {
    if (line[i] == '"') inQuotes = !inQuotes;
    if (inQuotes && line[i] == '\\' && i + 1 < line.size()) ++i;
  }
  return i;
}

char escaped(char c) {
  switch (c) {
    case '"':
    case '\\': return c;
    case 'n': return '\n';
    case 't': return '\t';
    default: throw CommandError(std::string("unknown escape \\") + c);
  }
}

platform::Text wordOf(std::string_view written) {
  if (written == "nil") return std::nullopt;
  std::string word;
  bool inQuotes = false;
  for (std::size_t i = 0; i < written.size(); ++i) {
    if (written[i] == '"') {
      inQuotes = !inQuotes;
    } else if (inQuotes && written[i] == '\\' && i + 1 < written.size()) {
      word += escaped(written[++i]);
    } else {
      word += written[i];
    }
  }
  if (inQuotes) throw CommandError("a double quote is not closed");
  return word;
}

}  // namespace

std::string withoutComment(std::string_view line) {
  const std::size_t first = line.find_first_not_of(kBlanks);
  std::size_t end = 0;
  for (std::size_t i = first; i < line.size() && line[i] != '#';) {
    end = endOfWord(line, i);
    i = line.find_first_not_of(kBlanks, end);
  }
  return end == 0 ? std::string() : std::string(line.substr(first, end - first));
}

Words words(std::string_view text) {
  Words result;
  for (std::size_t i = text.find_first_not_of(kBlanks); i < text.size();) {
    const std::size_t end = endOfWord(text, i);
    result.push_back(wordOf(text.substr(i, end - i)));
    i = text.find_first_not_of(kBlanks, end);
  }
  return result;
}

void expectCount(const Words& arguments, std::size_t least, std::size_t most) {
  if (arguments.size() >= least && arguments.size() <= most) return;
  std::string wanted = std::to_string(least);
  if (most != least) wanted += most == SIZE_MAX ? " or more" : " to " + std::to_string(most);
  throw CommandError("takes " + wanted + " arguments, not " + std::to_string(arguments.size()));
}

const std::string& present(const platform::Text& argument) {
  if (!argument) throw CommandError("nil is no argument here");
  return *argument;
}

std::string told(bool answer) { return answer ? "YES" : "NO"; }

std::string told(const platform::Text& text) { return text.value_or("nil"); }

}  // namespace cardpanels::drive
