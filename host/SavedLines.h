#pragma once

#include <string>
#include <vector>

#include "host/JobOption.h"
#include "host/Queue.h"

/// The files in which `lpoptions` keeps what is set for print queues, a line each.
namespace cardpanels::host {

/// The administrator's file.
std::string administratorsFile();

/// The user's own; "" when they have no home.
std::string usersFile();

/// A line of such a file.
struct SavedLine {
  std::string text;  // as it stands there, with its end
  bool isDefault = false;
  QueueName name = {};       // of no queue in a line that sets nothing
  std::string options = {};  // as cupsParseOptions reads them

  bool isFor(const QueueName& other) const;
  bool isFor(const std::string& queue) const;
};

/// The lines of `content`, which one after the other are that again.
std::vector<SavedLine> savedLines(const std::string& content);

/// The line that saves `options` under `name`. Throws `std::system_error` for what libcups could
/// not read back.
SavedLine savedLine(bool isDefault, const QueueName& name, const OptionList& options);

}  // namespace cardpanels::host
