#pragma once

#include <cups/ppd.h>

#include <memory>
#include <string>
#include <vector>

#include "host/PPDText.h"

namespace cardpanels::host {

struct PPDCloser {
  void operator()(ppd_file_t* ppd) const { ppdClose(ppd); }
};
/// Owns an open PPD.
using PPDFile = std::unique_ptr<ppd_file_t, PPDCloser>;

/// Opens the PPD at `path` (plain or gzip), with its texts in the user's language. Checks what the
/// panels rely on: every line readable, every keyword ASCII, every text UTF-8, every option with a
/// choice, nothing cut off, and what its own lines say about the card. Throws `Error` with file,
/// line and reason; `shownAs` stands for the path there when it is given (a queue's name).
PPDFile openPPD(const std::string& path, const std::string& shownAs = {});

/// A PPD with what stands in its file.
struct ReadPPD {
  std::vector<PPDStatement> statements;
  PPDFile ppd;
};

/// The same for who needs to know where something stands.
ReadPPD readPPD(const std::string& path, const std::string& shownAs = {});

}  // namespace cardpanels::host
