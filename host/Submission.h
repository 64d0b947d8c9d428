#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/Error.h"
#include "host/JobOption.h"
#include "host/Queue.h"
#include "platform/Text.h"

namespace cardpanels::host {

/// The queue's PPD is another one than the job's options were chosen on; nothing was printed.
class PPDChanged : public Error {
 public:
  using Error::Error;
};

/// A job was begun, and nobody knows whether it is whole: it could not be cancelled either.
class JobLeft : public Error {
 public:
  JobLeft(const std::string& message, int id) : Error(message), id_(id) {}
  int id() const { return id_; }

 private:
  int id_;
};

/// A job to be printed.
struct Submission {
  QueueName queue;
  std::string title;
  std::vector<std::string> files;
  std::vector<Option> options;  // of the PPD
  platform::Text ppdText = {};  // what they were chosen on; nothing for whatever the queue has
  std::optional<JobBasis> basis = {};   // what `openQueue` or `currentBasis` answered
  std::vector<Option> attributes = {};  // of the job, none of them the PPD's
  std::shared_ptr<const std::string> document = nullptr;  // without a name, in place of `files`
};

/// The basis of `job` as long as it holds, for a few seconds; what the queue is now otherwise.
/// Waits as long as `terms` say. Throws `PPDChanged`, and as `openQueue` does.
JobBasis currentBasis(const Submission& job, const Terms& terms = {});

/// Sends `job` and answers its id. Besides its attributes go those saved options of the queue that
/// the PPD does not know, such as `copies`. What the PPD knows is in the job's options, or was left
/// out. As long as its basis holds, the queue is not read again, and its PPD is taken for the one
/// that it was. Until there is a job it waits as long as `terms` say, then until the server takes
/// nothing more of the files for that time. Throws `PPDChanged`, as `openQueue` does, and `Error`
/// for a file that cannot be read; then nothing is printed: a job that is not whole is cancelled;
/// `JobLeft` where that fails.
int submitJob(const Submission& job, const Terms& terms = {});

/// Sees to the job `id` that was left of `job`: answers whether the server has all of it, which
/// then counts as sent, and cancels it otherwise. Throws `Error`.
bool isWholeElseCancelled(const Submission& job, int id, const Terms& terms = {});

}  // namespace cardpanels::host
