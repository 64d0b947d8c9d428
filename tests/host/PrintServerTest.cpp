#include <cups/cups.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include "host/PrintServer.h"
#include "host/SavedLines.h"
#include "tests/support/ScopedVariable.h"

namespace cardpanels::host {
namespace {

TEST(PrintServer, IsNamedWithItsPortOrBySocketAlone) {
  const std::string port = ":" + std::to_string(ippPort());
  for (const auto& [server, name] : std::vector<std::pair<std::string, std::string>>{
           {"cards", "cards" + port},
           {"fe80::a", "[fe80::a]" + port},
           {"[::1]", "[::1]" + port},
           {"/run/cups/cups.sock", "/run/cups/cups.sock"}}) {
    cupsSetServer(server.c_str());
    EXPECT_EQ(serverName(), name);
  }
  cupsSetServer(nullptr);
}

TEST(SavedLines, LieInTheAccountsHomeWhereNoVariableTellsIt) {
  const test::ScopedVariable home("HOME", "");
  EXPECT_EQ(usersFile(), std::string(getpwuid(getuid())->pw_dir) + "/.cups/lpoptions");
}

}  // namespace
}  // namespace cardpanels::host
