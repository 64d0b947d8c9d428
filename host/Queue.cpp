#include "host/Queue.h"

#include <utility>

#include "host/Destination.h"
#include "host/Error.h"
#include "host/FetchedPPD.h"
#include "host/MediaOption.h"
#include "host/Presets.h"
#include "host/Question.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

Queue queueOver(Talk& talk, const QueueName& name) {
  const Destination destination = destinationOf(talk, name);
  const FetchedPPD ppd(talk, destination);
  PPDFile records = ppd.open();
  JobBasis basis = basisOf(destination, records.get());
  Queue queue{destination.name,         {}, std::move(records), ppd.text(), std::move(basis),
              destination.serverOptions};
  for (Option& each : destination.options.options()) {
    if (isOfPPD(queue.ppd.get(), each.key)) queue.savedOptions.push_back(std::move(each));
  }
  return queue;
}

}  // namespace

QueueName QueueName::parse(const std::string& text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string::npos) return {text, ""};
  return {text.substr(0, slash), text.substr(slash + 1)};
}

std::string QueueName::text() const { return instance.empty() ? queue : queue + "/" + instance; }

Queue openQueue(const QueueName& name, const Terms& terms) {
  return answerOfServer<Queue>(terms, [name](Talk& talk) { return queueOver(talk, name); });
}

void saveOptions(const QueueName& name, const std::vector<Option>& options, const Terms& terms) {
  auto known = answerOfServer<QueueName>(terms, [name](Talk& talk) {
    return destinationOf(talk, {name.queue, ""}).name;
  });
  known.instance = name.instance;
  savePreset(known, options);
}

}  // namespace cardpanels::host
