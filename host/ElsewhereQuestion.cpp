#include "host/ElsewhereQuestion.h"

#include <memory>
#include <string>
#include <system_error>

#include "host/FetchedQueue.h"
#include "host/ServerThread.h"

using namespace cardpanels::host;

void* cardpanelsAskElsewhere(const char* queue, void (*answered)(void* data, bool hasCardOptions),
                             void* data) {
  try {
    return new std::shared_ptr<void>(
        startServerThread([queue = std::string(queue), answered, data](Abandonment& abandonment) {
          answered(data, hasCardOptionsElsewhere(queue, {.abandoned = &abandonment.flag()}));
        }));
  } catch (const std::system_error&) {
    answered(data, false);
    return nullptr;
  }
}

void cardpanelsStopAsking(void* asking) { delete static_cast<std::shared_ptr<void>*>(asking); }
