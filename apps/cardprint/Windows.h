#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "apps/cardprint/DialogJob.h"
#include "apps/cardprint/Waiter.h"
#include "host/JobOptions.h"
#include "platform/Bundle.h"

namespace cardpanels::cardprint {

/// What a dialog came to.
struct Choice {
  std::optional<std::string> output;  // for standard output; nothing when the user cancelled
  std::string error;                  // why the last attempt to send failed; "" else
  std::string printer = {};           // the queue that the user wants instead; "" for none
};

/// The program's windows, from the library that brings their toolkit. What they throw is
/// `host::Error` and what the job and the waiter's work throw, nothing of the toolkit's.
class Windows {
 public:
  Windows() = default;
  Windows(const Windows&) = delete;
  Windows& operator=(const Windows&) = delete;
  virtual ~Windows() = default;

  /// Waits beside the windows; this one's.
  virtual Waiter& waiter() = 0;

  /// The bundle in folder `path` for panels of `job`, which must live as long as panels load.
  virtual std::shared_ptr<platform::Bundle> bundle(const std::string& path,
                                                   const host::JobOptions& job) = 0;

  /// Lets the user choose in a dialog, which tells `told` at first, until `job` is sent, they
  /// cancel or want another printer. A job that cannot be sent is told there; but throws
  /// `host::PPDChanged`. For that and for another printer the dialog stays for the next call, and
  /// `job` must live until that, or until this ends.
  virtual Choice choose(DialogJob& job, const std::string& told) = 0;

  /// Shows `message` in a window until the user closes that.
  virtual void tellError(const std::string& message) = 0;

  /// Follows the jobs `ids` of `queue` until they have ended, and notifies the user on their
  /// desktop when the printer stops and of what became of the jobs. Returns at once where the
  /// desktop takes no notifications.
  virtual void follow(const std::string& queue, const std::vector<int>& ids) = 0;
};

/// The shared object with the windows, beside the platform library.
inline constexpr const char* kWindowsLibrary = "libcardprint-dialog.so";

/// Opens that library and the display. Throws `host::Error` when either is not there. The library
/// stays loaded for the life of the process.
std::unique_ptr<Windows> openWindows();

}  // namespace cardpanels::cardprint

extern "C" {
/// The entry of that library: new windows for the caller, on the display that the environment
/// names. Throws `host::Error` when there is none.
__attribute__((visibility("default"))) cardpanels::cardprint::Windows* cardprintOpenWindows();
}
