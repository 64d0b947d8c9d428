#include "apps/cardprint/Output.h"

#include <iostream>

#include "host/Program.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {

int tellOutput(const std::string& output, bool wasPrinted) {
  std::cout << output;
  try {
    host::flushOutput();
    return 0;
  } catch (const host::Error& error) {
    if (!wasPrinted) throw;
    host::tellError(std::string(error.what()) + " " + platform::_("The job was printed."));
    return kPrintedUntold;
  }
}

}  // namespace cardpanels::cardprint
