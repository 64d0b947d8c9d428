#pragma once

#include <sys/types.h>

#include <map>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace cardpanels::test {

/// What a print server has been asked.
struct Traffic {
  int connections;
  std::vector<std::string> requests;  // `GET PATH`, or IPP's name of the operation
};

/// A print server of a test's own: a real cupsd with all its files in a temporary folder, ended and
/// removed with this. While it lives, libcups and the programs that the test starts use it, with
/// saved options of their own: `CUPS_SERVER`, `CUPS_SERVERROOT` and `HOME` lead there, to the last
/// one of several. Works for root and for a normal user. Made before a test uses libcups otherwise:
/// that reads where saved options lie only once in a thread.
class PrivatePrintServer {
 public:
  /// Starts cupsd and waits until it answers. Throws when it does not. Listens at the port of
  /// that number, too, when it is not 0.
  explicit PrivatePrintServer(int port = 0);
  ~PrivatePrintServer();
  PrivatePrintServer(const PrivatePrintServer&) = delete;
  PrivatePrintServer& operator=(const PrivatePrintServer&) = delete;

  /// A port that nobody listens at just now.
  static int freePort();

  /// The socket, as `CUPS_SERVER` takes it.
  const std::string& address() const { return address_; }

  /// Where the user's saved options lie below.
  std::string home() const { return (folder_.path() / "home").string(); }

  /// Adds the queue `name` with the PPD text `ppd`; a raw one when that is empty. It accepts jobs
  /// and keeps them: nothing is sent anywhere.
  void addQueue(const std::string& name, const std::string& ppd);

  /// Adds the queue `name` that passes its jobs on to `uri`, with what `lpadmin` takes for a PPD.
  void addRemoteQueue(const std::string& name, const std::string& uri, const std::string& model);

  /// Adds the class `name` of the queues `members`.
  void addClass(const std::string& name, const std::vector<std::string>& members);

  /// Lets the queue `name` print its jobs, into a file in the temporary folder.
  void enable(const std::string& name);

  /// Stops the queue's printer for `reason`.
  void stop(const std::string& name, const std::string& reason);

  /// Has the queue take no jobs.
  void reject(const std::string& name);

  /// Lets the server stand still: it takes connections and answers nothing until `resume`.
  void suspend() const;
  void resume() const;

  /// Makes `name` the server's default.
  void setDefault(const std::string& name);

  /// Sets what the server adds to jobs of the queue that lack it: `-o KEY-default=VALUE …`, as
  /// `lpadmin` takes them.
  void setDefaults(const std::string& name, const std::string& defaults);

  /// Saves `options` (`KEY=VALUE …`, as `lpoptions -o` takes them) under `name`.
  void saveOptions(const std::string& name, const std::string& options);

  /// The attributes of job `id` as the server received them, as texts: options, `job-name`, …
  std::map<std::string, std::string> job(int id) const;

  /// The options of job `id` as the server hands them to the filters, all in one text. Waits until
  /// it has. The queue must be enabled.
  std::string filterOptions(int id) const;

  /// How job `id` has ended (`completed`, `canceled`, `aborted`), which this waits for. The queue
  /// must be enabled.
  std::string endedJob(int id) const;

  /// The number of jobs that the server has been given.
  int jobCount() const;

  /// Whether it has the first file of job `id` whole. Costs the server nothing.
  bool hasFile(int id) const;

  /// What clients have asked since the last call; since the start at first.
  Traffic traffic();

  /// The server's log at debug level.
  std::string log() const { return fileContent(folder_.path() / "log" / "error_log"); }

 private:
  std::string logUpTo(const std::string& log, const std::string& text) const;
  void writeConfiguration(int port) const;
  void start();
  void waitUntilItAnswers();
  void run(const std::string& command) const;
  void setVariable(const char* name, const std::string& value);

  TemporaryFolder folder_;
  std::string address_;
  std::map<std::string, std::string> variablesBefore_;
  pid_t process_ = 0;
  int fences_ = 0;
};

}  // namespace cardpanels::test
