#include "host/PrintServer.h"

#include <array>

#include "host/Error.h"
#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {
namespace {

using platform::_;
using platform::filled;

constexpr double kInterval = 0.1;  // seconds of silence after which a `Waiting` is asked

int giveUp(http_t* /*http*/, void* /*data*/) { return 0; }

int goesOn(http_t* /*http*/, void* data) {
  const auto& waiting = *static_cast<const Waiting*>(data);
  return !waiting.abandoned && std::chrono::steady_clock::now() < waiting.end ? 1 : 0;
}

}  // namespace

Http connected(int seconds) {
  Http http(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                         seconds * 1000, nullptr));
  if (!http) failAtServer(cupsLastErrorString());
  httpSetTimeout(http.get(), seconds, giveUp, nullptr);
  return http;
}

Http connected(int seconds, Waiting& waiting) {
  Http http = connected(seconds);
  httpSetTimeout(http.get(), kInterval, goesOn, &waiting);
  return http;
}

void failAtServer(const std::string& reason) {
  throw Error(filled(_("The print server {server} cannot be asked: {reason}"),
                     {{"server", cupsServer()}, {"reason", reason}}));
}

void failWithoutQueue(const std::string& queue) {
  throw Error(filled(_("The print server {server} has no queue {queue}."),
                     {{"server", cupsServer()}, {"queue", platform::onOneLine(queue)}}));
}

Ipp queueRequest(ipp_op_t operation, const std::string& queue) {
  Ipp request(ippNewRequest(operation));
  if (!queue.empty()) {
    std::array<char, HTTP_MAX_URI> uri{};
    httpAssembleURIf(HTTP_URI_CODING_ALL, uri.data(), uri.size(), "ipp", nullptr, "localhost",
                     ippPort(), "/printers/%s", queue.c_str());
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri.data());
  }
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  return request;
}

Ipp answered(http_t* http, Ipp request, const std::string& path) {
  return Ipp(cupsDoRequest(http, request.release(), path.c_str()));
}

}  // namespace cardpanels::host
