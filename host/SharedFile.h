#pragma once

#include <functional>
#include <string>

namespace cardpanels::host {

/// What the file at `path` holds; "" when there is none. Throws `std::system_error`.
std::string readFile(const std::string& path);

/// Puts what `change` makes of the file's content in its place, whole or not at all. The file, and
/// the folder that it is in, are made where there are none, for the user alone; else mode and owner
/// stay, and a symbolic link remains one. Of several that do this at once none loses what another
/// has written: each waits for the others, ten seconds at most. `change` may be called again, when
/// somebody who does not wait has written meanwhile. Throws `std::system_error`, and what `change`
/// throws; then the content is what it was.
void changeFile(const std::string& path,
                const std::function<std::string(const std::string& content)>& change);

}  // namespace cardpanels::host
