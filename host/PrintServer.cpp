#include "host/PrintServer.h"

#include <array>

#include "platform/Messages.h"
#include "platform/Text.h"

namespace cardpanels::host {

using platform::_;
using platform::filled;

void useServer(const ServerChoice& choice) {
  if (!choice.server.empty()) cupsSetServer(choice.server.c_str());
  if (!choice.user.empty()) cupsSetUser(choice.user.c_str());
  if (choice.isEncrypted) cupsSetEncryption(HTTP_ENCRYPTION_REQUIRED);
}

void ServerSettings::apply() const {
  if (*this == ServerSettings()) return;
  cupsSetServer(server.c_str());
  ippSetPort(port);
  cupsSetUser(user.c_str());
  cupsSetEncryption(encryption);
}

std::string serverName() {
  std::string server = cupsServer();
  if (server.substr(0, 1) == "/") return server;
  const bool isIPv6 = server.find(':') != std::string::npos && server.substr(0, 1) != "[";
  return (isIPv6 ? "[" + server + "]" : server) + ":" + std::to_string(ippPort());
}

void failAtServer(const std::string& reason) {
  throw ServerError(filled(_("The print server {server} cannot be asked: {reason}"),
                           {{"server", serverName()}, {"reason", platform::onOneLine(reason)}}));
}

void failWithoutQueue(const std::string& queue) {
  throw Error(filled(_("The print server {server} has no queue {queue}."),
                     {{"server", serverName()}, {"queue", platform::onOneLine(queue)}}));
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

Ipp jobRequest(ipp_op_t operation, const std::string& queue, int id) {
  Ipp request = queueRequest(operation, queue);
  ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", id);
  return request;
}

bool isGranted(ipp_t* answer) { return ippGetStatusCode(answer) <= IPP_STATUS_OK_CONFLICTING; }

std::string statusText(ipp_t* answer) {
  const std::string text = textIn(answer, "status-message");
  return text.empty() ? ippErrorString(ippGetStatusCode(answer)) : text;
}

std::string textOf(ipp_attribute_t* attribute) {
  const char* const text = ippGetString(attribute, 0, nullptr);
  return text == nullptr ? "" : platform::onOneLine(text);
}

std::string textIn(ipp_t* answer, const char* attribute) {
  return textOf(ippFindAttribute(answer, attribute, IPP_TAG_ZERO));
}

std::vector<std::string> reasonsOf(ipp_attribute_t* attribute) {
  std::vector<std::string> reasons;
  for (int i = 0; i < ippGetCount(attribute); ++i) {
    const char* const reason = ippGetString(attribute, i, nullptr);
    if (reason != nullptr && std::string_view(reason) != "none")
      reasons.push_back(platform::onOneLine(reason));
  }
  return reasons;
}

std::vector<std::string> reasonsIn(ipp_t* answer, const char* attribute) {
  return reasonsOf(ippFindAttribute(answer, attribute, IPP_TAG_ZERO));
}

}  // namespace cardpanels::host
