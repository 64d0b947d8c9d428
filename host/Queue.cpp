#include "host/Queue.h"

#include <algorithm>
#include <utility>

#include "host/Destination.h"
#include "host/Error.h"
#include "host/FetchedQueue.h"
#include "host/MediaOption.h"
#include "host/Presets.h"
#include "host/Question.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr std::size_t kMostTold = 12;

std::string differencesIn(const FetchedQueue& queue) {
  if (queue.leftOut.empty()) return {};
  std::string titles;
  for (std::size_t i = 0; i < std::min(queue.leftOut.size(), kMostTold); ++i)
    titles += (i == 0 ? "" : ", ") + platform::onOneLine(queue.leftOut[i]);
  if (queue.leftOut.size() > kMostTold) titles += ", …";
  return filled(_("Not all printers of the class {queue} have these, which are left out: {titles}"),
                {{"queue", platform::onOneLine(queue.destination.name.queue)}, {"titles", titles}});
}

}  // namespace

QueueName QueueName::parse(const std::string& text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) return {text, ""};
  return {text.substr(0, slash), text.substr(slash + 1)};
}

std::string QueueName::text() const { return instance.empty() ? queue : queue + "/" + instance; }

Queue openQueue(const QueueName& name, const Terms& terms) {
  FetchedQueue fetched = fetchQueue(name, terms);
  JobBasis basis = basisOf(fetched.destination, fetched.ppd.get());
  Queue queue{fetched.destination.name, {},
              std::move(fetched.ppd),   std::move(fetched.ppdText),
              std::move(basis),         fetched.destination.serverOptions,
              differencesIn(fetched),   fetched.isElsewhere};
  for (Option& each : fetched.destination.options.options()) {
    if (isOfPPD(queue.ppd.get(), each.key)) queue.savedOptions.push_back(std::move(each));
  }
  return queue;
}

void saveOptions(const QueueName& name, const std::vector<Option>& options, const Terms& terms) {
  auto known = answerOfServer<QueueName>(terms, [name](Talk& talk) {
    return destinationOf(talk, {name.queue, ""}).name;
  });
  known.instance = name.instance;
  savePreset(known, options);
}

}  // namespace cardpanels::host
