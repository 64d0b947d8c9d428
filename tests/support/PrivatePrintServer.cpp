#include "tests/support/PrivatePrintServer.h"

#include <arpa/inet.h>
#include <cups/cups.h>
#include <netinet/in.h>
#include <pwd.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <memory>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "platform/Text.h"
#include "tests/support/Process.h"

namespace cardpanels::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::seconds kPatience(20);

struct HttpCloser {
  void operator()(http_t* http) const { httpClose(http); }
};
using Http = std::unique_ptr<http_t, HttpCloser>;

struct IppDeleter {
  void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};
using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

constexpr int kOneSecond = 1000;

std::string userName() {
  const passwd* const entry = getpwuid(getuid());
  return entry == nullptr ? "nobody" : entry->pw_name;
}

std::string attributeText(ipp_attribute_t* attribute);

/// A collection as an option's value: `{Name="value" …}`.
std::string collectionText(ipp_t* collection) {
  std::string text = "{";
  for (auto* each = ippFirstAttribute(collection); each != nullptr;
       each = ippNextAttribute(collection)) {
    if (text.size() > 1) text += ' ';
    text += std::string(ippGetName(each)) + "=" + platform::inQuotes(attributeText(each));
  }
  return text + "}";
}

std::string attributeText(ipp_attribute_t* attribute) {
  if (ippGetValueTag(attribute) == IPP_TAG_BEGIN_COLLECTION) {
    return collectionText(ippGetCollection(attribute, 0));
  }
  // ippAttributeString would escape quotes.
  const char* const exact = ippGetString(attribute, 0, nullptr);
  if (exact != nullptr && ippGetCount(attribute) == 1) return exact;
  std::string text(2048, '\0');
  text.resize(ippAttributeString(attribute, text.data(), text.size()));
  return text;
}

/// cupsd's log puts a backslash before quotes and backslashes.
std::string withoutLogEscapes(const std::string& line) {
  std::string text;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '\\' && i + 1 < line.size()) ++i;
    text += line[i];
  }
  return text;
}

}  // namespace

PrivatePrintServer::PrivatePrintServer(int port)
    : address_((folder_.path() / "cups.sock").string()) {
  setVariable("CUPS_SERVER", address_);
  setVariable("CUPS_SERVERROOT", folder_.path().string());
  setVariable("HOME", home());
  cupsSetServer(address_.c_str());
  writeConfiguration(port);
  start();
  waitUntilItAnswers();
}

int PrivatePrintServer::freePort() {
  const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in name{};
  name.sin_family = AF_INET;
  name.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof(name);
  auto* const address = reinterpret_cast<sockaddr*>(&name);
  const bool isBound =
      bind(listener, address, length) == 0 && getsockname(listener, address, &length) == 0;
  close(listener);
  if (!isBound) throw std::runtime_error("there is no free port");
  return ntohs(name.sin_port);
}

PrivatePrintServer::~PrivatePrintServer() {
  if (process_ > 0) {
    resume();
    kill(process_, SIGTERM);
    waitpid(process_, nullptr, 0);
  }
  cupsSetServer(nullptr);
  for (const auto& [name, value] : variablesBefore_) {
    if (value.empty()) {
      unsetenv(name.c_str());
    } else {
      setenv(name.c_str(), value.c_str(), 1);
    }
  }
}

void PrivatePrintServer::setVariable(const char* name, const std::string& value) {
  const char* const before = std::getenv(name);
  variablesBefore_[name] = before == nullptr ? "" : before;
  setenv(name, value.c_str(), 1);
}

void PrivatePrintServer::writeConfiguration(int port) const {
  const std::string root = folder_.path().string();
  for (const char* name : {"home", "log", "spool", "cache", "state", "tmp"}) {
    std::filesystem::create_directory(folder_.path() / name);
  }
  // Filters run as another user when cupsd is root's.
  using std::filesystem::perms;
  std::filesystem::permissions(folder_.path(), perms(0755));
  std::filesystem::permissions(folder_.path() / "tmp", perms(01777));
  folder_.write("cups-files.conf", "ServerRoot " + root + "\nRequestRoot " + root +
                                       "/spool\nCacheDir " + root + "/cache\nStateDir " + root +
                                       "/state\nTempDir " + root + "/tmp\nErrorLog " + root +
                                       "/log/error_log\nAccessLog " + root +
                                       "/log/access_log\nPageLog " + root +
                                       "/log/page_log\nDataDir /usr/share/cups\n"
                                       "ServerBin /usr/lib/cups\nFileDevice Yes\n"
                                       "SystemGroup root\n" +
                                       (getuid() == 0 ? "" : "User " + userName() + "\n"));
  folder_.write("cupsd.conf", "Listen " + address_ +
                                  (port == 0 ? "" : "\nListen 127.0.0.1:" + std::to_string(port)) +
                                  "\nBrowsing Off\nLogLevel debug\nAccessLogLevel all\nMaxLogSize "
                                  "0\nMaxJobs 0\nWebInterface No\n"
                                  "DefaultAuthType None\n<Location />\nOrder allow,deny\n"
                                  "Allow all\n</Location>\n<Policy default>\n"
                                  "JobPrivateValues none\nSubscriptionPrivateValues none\n"
                                  "<Limit All>\nOrder allow,deny\nAllow all\n</Limit>\n"
                                  "</Policy>\n");
}

void PrivatePrintServer::start() {
  const std::string configuration = (folder_.path() / "cupsd.conf").string();
  const std::string files = (folder_.path() / "cups-files.conf").string();
  process_ = fork();
  if (process_ != 0) return;
  prctl(PR_SET_PDEATHSIG, SIGTERM);
  unsetenv("LD_PRELOAD");
  execl("/usr/sbin/cupsd", "cupsd", "-f", "-c", configuration.c_str(), "-s", files.c_str(),
        nullptr);
  _exit(127);
}

void PrivatePrintServer::waitUntilItAnswers() {
  for (const auto limit = std::chrono::steady_clock::now() + kPatience;
       std::chrono::steady_clock::now() < limit; std::this_thread::sleep_for(20ms)) {
    if (waitpid(process_, nullptr, WNOHANG) != 0) {
      process_ = 0;
      throw std::runtime_error("cupsd ended: " + log());
    }
    const Http http(httpConnect2(address_.c_str(), ippPort(), nullptr, AF_UNSPEC,
                                 HTTP_ENCRYPTION_IF_REQUESTED, 1, kOneSecond, nullptr));
    if (http) return;
  }
  throw std::runtime_error("cupsd does not answer: " + log());
}

void PrivatePrintServer::run(const std::string& command) const {
  const Finished finished =
      runCommand("PATH=$PATH:/usr/sbin; export CUPS_SERVER=" + address_ + "; " + command);
  if (finished.status != 0) throw std::runtime_error(command + ": " + finished.errors);
}

void PrivatePrintServer::addQueue(const std::string& name, const std::string& ppd) {
  const std::string out = (folder_.path() / (name + ".prn")).string();
  const std::string model = ppd.empty() ? "-m raw" : "-P " + folder_.write(name + ".ppd", ppd);
  run("lpadmin -p " + name + " -v file:" + out + " " + model);
  run("cupsaccept " + name);
}

void PrivatePrintServer::addRemoteQueue(const std::string& name, const std::string& uri,
                                        const std::string& model) {
  run("lpadmin -p " + name + " -v '" + uri + "' " + model);
  run("cupsaccept " + name + " && cupsenable " + name);
}

void PrivatePrintServer::addClass(const std::string& name,
                                  const std::vector<std::string>& members) {
  for (const std::string& each : members)
    run(std::string("lpadmin -p ").append(each).append(" -c ").append(name));
  run("cupsaccept " + name + " && cupsenable " + name);
}

void PrivatePrintServer::enable(const std::string& name) { run("cupsenable " + name); }

void PrivatePrintServer::stop(const std::string& name, const std::string& reason) {
  run("cupsdisable -r '" + reason + "' " + name);
}

void PrivatePrintServer::reject(const std::string& name) { run("cupsreject " + name); }

void PrivatePrintServer::suspend() const { kill(process_, SIGSTOP); }

void PrivatePrintServer::resume() const { kill(process_, SIGCONT); }

void PrivatePrintServer::setDefault(const std::string& name) { run("lpadmin -d " + name); }

void PrivatePrintServer::setDefaults(const std::string& name, const std::string& defaults) {
  run("lpadmin -p " + name + " " + defaults);
}

void PrivatePrintServer::saveOptions(const std::string& name, const std::string& options) {
  run("lpoptions -p " + name + " -o '" + options + "'");
}

std::map<std::string, std::string> PrivatePrintServer::job(int id) const {
  const Http http(httpConnect2(address_.c_str(), ippPort(), nullptr, AF_UNSPEC,
                               HTTP_ENCRYPTION_IF_REQUESTED, 1, kOneSecond, nullptr));
  ipp_t* const request = ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES);
  ippAddString(request, IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr,
               ("ipp://localhost/jobs/" + std::to_string(id)).c_str());
  const Ipp answer(cupsDoRequest(http.get(), request, "/"));
  std::map<std::string, std::string> attributes;
  for (auto* each = ippFirstAttribute(answer.get()); each != nullptr;
       each = ippNextAttribute(answer.get())) {
    const char* const name = ippGetName(each);
    if (name != nullptr && ippGetGroupTag(each) == IPP_TAG_JOB) {
      attributes[name] = attributeText(each);
    }
  }
  return attributes;
}

std::string PrivatePrintServer::filterOptions(int id) const {
  const std::string start = "[Job " + std::to_string(id) + "] argv[5]=\"";
  for (const auto limit = std::chrono::steady_clock::now() + kPatience;
       std::chrono::steady_clock::now() < limit; std::this_thread::sleep_for(20ms)) {
    const std::string text = log();
    const std::size_t found = text.find(start);
    const std::size_t end = text.find('\n', found);
    if (found == std::string::npos || end == std::string::npos) continue;
    const std::size_t from = found + start.size();
    return withoutLogEscapes(text.substr(from, end - 1 - from));
  }
  throw std::runtime_error("no filter was started: " + log());
}

std::string PrivatePrintServer::endedJob(int id) const {
  std::string state;
  for (const auto limit = std::chrono::steady_clock::now() + kPatience;
       std::chrono::steady_clock::now() < limit; std::this_thread::sleep_for(20ms)) {
    state = job(id)["job-state"];
    if (state == "completed" || state == "canceled" || state == "aborted") return state;
  }
  throw std::runtime_error("the job is still " + state);
}

int PrivatePrintServer::jobCount() const {
  const Http http(httpConnect2(address_.c_str(), ippPort(), nullptr, AF_UNSPEC,
                               HTTP_ENCRYPTION_IF_REQUESTED, 1, kOneSecond, nullptr));
  cups_job_t* jobs = nullptr;
  const int count = cupsGetJobs2(http.get(), &jobs, nullptr, 0, CUPS_WHICHJOBS_ALL);
  cupsFreeJobs(count, jobs);
  return count;
}

/// The server gives a file this name once it has come to its end.
bool PrivatePrintServer::hasFile(int id) const {
  std::ostringstream name;
  name << 'd' << std::setw(5) << std::setfill('0') << id << "-001";
  return std::filesystem::exists(folder_.path() / "spool" / name.str());
}

/// What is in the log of that name before `text`, which this waits for.
std::string PrivatePrintServer::logUpTo(const std::string& log, const std::string& text) const {
  for (const auto limit = std::chrono::steady_clock::now() + kPatience;
       std::chrono::steady_clock::now() < limit; std::this_thread::sleep_for(20ms)) {
    const std::string all = fileContent(folder_.path() / "log" / log);
    const std::size_t found = all.find(text);
    if (found != std::string::npos) return all.substr(0, found);
  }
  throw std::runtime_error("the server logs no " + text);
}

Traffic PrivatePrintServer::traffic() {
  // A request of our own stands in both logs after those that are done.
  const std::string before = "GET /fence" + std::to_string(fences_) + " ";
  const std::string path = "/fence" + std::to_string(++fences_);
  const Http http(httpConnect2(address_.c_str(), ippPort(), nullptr, AF_UNSPEC,
                               HTTP_ENCRYPTION_IF_REQUESTED, 1, kOneSecond, nullptr));
  httpGet(http.get(), path.c_str());
  while (httpUpdate(http.get()) == HTTP_STATUS_CONTINUE) {
  }
  Traffic traffic{-1, {}};  // the own connection is none
  const auto sinceLast = [&](const std::string& log) {
    const std::string all = logUpTo(log, "GET " + path + " ");
    const std::size_t last = all.find(before);
    return std::istringstream(last == std::string::npos ? all : all.substr(all.find('\n', last)));
  };
  auto errors = sinceLast("error_log");
  for (std::string line; std::getline(errors, line);) {
    if (line.find("] Accepted from ") != std::string::npos) ++traffic.connections;
  }
  auto requests = sinceLast("access_log");
  static const std::regex kLine(R"re(.*"(?:(GET \S+)|\S+ \S+) HTTP/1.1" \d+ \d+ (\S+) .*)re");
  for (std::string line; std::getline(requests, line);) {
    std::smatch parts;
    if (std::regex_match(line, parts, kLine))
      traffic.requests.push_back(parts[parts[1].matched ? 1 : 2]);
  }
  return traffic;
}

}  // namespace cardpanels::test
