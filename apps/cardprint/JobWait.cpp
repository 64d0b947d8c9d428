#include "apps/cardprint/JobWait.h"

#include <chrono>
#include <thread>

#include "dialog/JobStateText.h"
#include "dialog/PrinterStateText.h"
#include "dialog/StateWatch.h"
#include "host/Error.h"
#include "host/JobStates.h"
#include "host/Program.h"
#include "platform/Messages.h"

namespace cardpanels::cardprint {
namespace {

using platform::_;

constexpr std::chrono::seconds kInterval(1);

class JobWait {
 public:
  JobWait(std::string queue, ppd_file_t* ppd, Waiter& waiter)
      : queue_(std::move(queue)), ppd_(ppd), waiter_(waiter) {}

  /// Answers what became of the job when that is not that it was printed; "" else.
  std::string lossOf(int id) {
    for (;;) {
      const auto progress = waitedFor<host::JobProgress>(
          waiter_, _("Waiting for the printer…"), [queue = queue_, id](const host::Terms& terms) {
            return host::jobProgress(queue, id, terms);
          });
      if (progress.job.hasEnded()) return dialog::lossLine(progress.job);
      tell(progress.printer);
      std::this_thread::sleep_for(kInterval);
    }
  }

 private:
  /// Once for each time that the printer stops.
  void tell(const host::PrinterState& printer) {
    if (printer.isStopped && !isStopped_) {
      host::tellError(queue_ + ": " + dialog::stateLine({printer}, ppd_));
    }
    isStopped_ = printer.isStopped;
  }

  std::string queue_;
  ppd_file_t* ppd_;
  Waiter& waiter_;
  bool isStopped_ = false;
};

}  // namespace

bool waitForJobs(const std::string& queue, const std::vector<int>& ids, ppd_file_t* ppd,
                 Waiter& waiter) {
  JobWait wait(queue, ppd, waiter);
  bool areAllPrinted = true;
  for (const int id : ids) {
    std::string loss;
    try {
      loss = wait.lossOf(id);
    } catch (const Cancelled&) {
      throw;
    } catch (const host::Error& error) {
      loss = error.what();
    }
    if (loss.empty()) continue;
    areAllPrinted = false;
    std::string line = queue + "-" + std::to_string(id);
    line.append(": ").append(loss);
    host::tellError(line);
  }
  return areAllPrinted;
}

}  // namespace cardpanels::cardprint
