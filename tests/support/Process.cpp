#include "tests/support/Process.h"

#include <sys/wait.h>

#include <cstdlib>

#include "tests/support/TemporaryFolder.h"

namespace cardpanels::test {

Finished runCommand(const std::string& command, const std::string& input) {
  const TemporaryFolder folder;
  const std::string in = folder.write("in", input);
  const std::string out = folder.write("out", "");
  const std::string err = folder.write("err", "");
  const int status =
      std::system(("{ " + command + "\n} <" + in + " >" + out + " 2>" + err).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, fileContent(out), fileContent(err)};
}

}  // namespace cardpanels::test
