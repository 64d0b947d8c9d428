#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "host/LpArguments.h"
#include "tests/support/Process.h"

namespace cardpanels::host {
namespace {

using Options = std::vector<Option>;

/// What `lp` would make of `arguments` in a shell.
Options readBack(const std::string& arguments) {
  const auto shell = test::runCommand("printf '%s\\0' " + arguments);
  OptionList options;
  std::string_view rest = shell.output;
  while (!rest.empty()) {
    const std::string word(rest.substr(0, rest.find('\0')));
    rest.remove_prefix(word.size() + 1);
    if (word == "-o") continue;
    options.count = cupsParseOptions(word.c_str(), options.count, &options.list);
  }
  return options.options();
}

TEST(LpArguments, PlainOptionsStandPlain) {
  EXPECT_EQ(lpArguments({{"cardLaminate", "Front"}, {"area", "Custom.1in 1in 2in 2in"}}),
            "-o cardLaminate=Front -o 'area=\"Custom.1in 1in 2in 2in\"'");
  EXPECT_EQ(lpArguments({}), "");
}

TEST(LpArguments, AShellAndLpReadEveryValueBack) {
  for (const std::string value :
       {"Front", "Custom.1in 1in 2in 2in", "Custom.1\" 1\" 2\" 2\"", "Custom.it's", "Custom.a\\b",
        "Custom.$HOME `id` $(id)", "Custom.\"'\\\"'", "{Text=\"a b\" Size=3}", "Custom.{x} y",
        "Custom.a,b", "Custom.a=b", "Custom.größer", "Custom.*?[a]~#!&|;<>()", "Custom.\\", "-x",
        "", "true", "Custom.line\nend"}) {
    EXPECT_EQ(readBack(lpArguments({{"area", value}})), (Options{{"area", value}})) << value;
  }
}

}  // namespace
}  // namespace cardpanels::host
