// A connection to the print server that is used again.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>

#include "host/KeptConnection.h"
#include "host/PrinterState.h"
#include "host/Queue.h"
#include "host/Submission.h"
#include "tests/host/ErrorOf.h"
#include "tests/support/OddServer.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::host {
namespace {

using test::httpAnswer;
using test::jobAnswer;
using test::OddServer;
using test::queueAnswer;
using testing::HasSubstr;
using Client = OddServer::Client;

/// A server that answers whatever belongs to a job, and counts its connections and requests.
class KeptConnections : public testing::Test {
 protected:
  /// What `client` gets for its requests; nothing more once `most` were answered.
  void serve(Client& client, int most = 100) {
    ++connections_;
    for (std::string request; most > 0 && !(request = client.request()).empty(); --most) {
      ++requests_;
      client.send(request.starts_with("GET ") ? httpAnswer(test::testPPD({test::laminateOption()}))
                  : test::asksFor(request, IPP_OP_CREATE_JOB) ? jobAnswer(17)
                                                              : queueAnswer());
    }
  }

  /// Reads the queue, and submits a job on what was read.
  int printed() {
    const Queue queue = openQueue({"card", ""}, terms_);
    return submitJob({queue.name, "Badge", {badge_}, {}, queue.ppdText, queue.basis}, terms_);
  }

  test::TemporaryFolder folder_;
  std::string badge_ = folder_.write("badge.txt", "a badge\n");
  std::atomic<int> connections_ = 0;
  std::atomic<int> requests_ = 0;
  Terms terms_{.seconds = 1, .kept = std::make_shared<KeptConnection>()};
};

TEST_F(KeptConnections, GoOnFromTheQueueToItsJob) {
  const OddServer server([this](Client& client) { serve(client); });
  EXPECT_EQ(printed(), 17);
  EXPECT_EQ(connections_, 1);
  EXPECT_EQ(requests_, 4);
}

TEST_F(KeptConnections, ThatAreClosedMeanwhileAreMadeAnew) {
  const OddServer server([this](Client& client) { serve(client, connections_ == 0 ? 2 : 100); });
  EXPECT_EQ(printed(), 17);
  EXPECT_EQ(connections_, 2);
  EXPECT_EQ(requests_, 4);
}

TEST_F(KeptConnections, ThatAreClosedInsteadOfAnAnswerAreMadeAnew) {
  const OddServer server([this](Client& client) {
    const bool isFirst = connections_ == 0;
    serve(client, isFirst ? 2 : 100);
    client.request();
  });
  EXPECT_EQ(printed(), 17);
  EXPECT_EQ(connections_, 2);
}

TEST_F(KeptConnections, AreMadeAnewOnce) {
  const OddServer server([this](Client& client) {
    const bool isFirst = connections_ == 0;
    serve(client, isFirst ? 2 : 0);
    client.request();
  });
  EXPECT_THAT(errorOf([this] { printed(); }), HasSubstr("closed the connection in the middle"));
  EXPECT_EQ(connections_, 2);
}

TEST_F(KeptConnections, HaveTheLimitsOfOthers) {
  const OddServer server([this](Client& client) {
    serve(client, 2);
    client.beSilent();
  });
  EXPECT_THAT(errorOf([this] { printed(); }), HasSubstr("within 1 s"));
  EXPECT_EQ(connections_, 1);
}

TEST_F(KeptConnections, AreNotThoseThatWereCut) {
  const OddServer server([this](Client& client) {
    serve(client, connections_ == 0 ? 2 : 100);
    client.beSilent();
  });
  EXPECT_THAT(errorOf([this] { printed(); }), HasSubstr("within 1 s"));
  EXPECT_EQ(printed(), 17);
  EXPECT_EQ(connections_, 2);
}

TEST_F(KeptConnections, AreNotThoseWhoseAnswerIsNotReadToItsEnd) {
  // A further value of no attribute: what comes behind is not read.
  const std::string start("\x02\x00\x00\x00\x00\x00\x00\x01\x01\x41\x00\x00", 12);
  std::string answer = httpAnswer(start);
  answer.replace(answer.find("Length: 12"), 10, "Length: 99");
  const OddServer server([&](Client& client) {
    ++connections_;
    while (!client.request().empty()) client.send(answer);
  });
  for (int i = 0; i < 2; ++i) {
    EXPECT_THAT(errorOf([this] { printerState("card", terms_); }), HasSubstr("understood"));
  }
  EXPECT_EQ(connections_, 2);
}

TEST_F(KeptConnections, AreNotThoseThatTheServerIsAboutToClose) {
  std::string answer = queueAnswer();
  answer.insert(answer.find("Content-Type"), "Connection: close\r\n");
  const OddServer server([&](Client& client) {
    ++connections_;
    while (!client.request().empty()) client.send(answer);
  });
  printerState("card", terms_);
  printerState("card", terms_);
  EXPECT_EQ(connections_, 2);
}

TEST_F(KeptConnections, StayAuthorized) {
  std::atomic<int> refused = 0;
  const OddServer server([&](Client& client) {
    for (std::string request; !(request = client.request()).empty();) {
      // ada:swordfish
      const bool isKnown = request.find("Basic YWRhOnN3b3JkZmlzaA==") != std::string::npos;
      if (!isKnown) ++refused;
      client.send(isKnown ? queueAnswer()
                          : "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"cards\""
                            "\r\nContent-Length: 0\r\n\r\n");
    }
  });
  terms_.login = Login{"ada", "swordfish"};
  printerState("card", terms_);
  printerState("card", terms_);
  EXPECT_EQ(refused, 1);
}

TEST_F(KeptConnections, AskAgainForAQueueThatWasReadLongAgo) {
  const OddServer server([this](Client& client) { serve(client); });
  Queue queue = openQueue({"card", ""}, terms_);
  queue.basis.read -= std::chrono::minutes(1);
  EXPECT_THROW(submitJob({queue.name, "Badge", {badge_}, {}, "another PPD", queue.basis}, terms_),
               PPDChanged);
  EXPECT_EQ(requests_, 4);
}

TEST_F(KeptConnections, ReadAQueueOfLongAgoOnceForManyJobs) {
  const OddServer server([this](Client& client) { serve(client); });
  Queue queue = openQueue({"card", ""}, terms_);
  queue.basis.read -= std::chrono::minutes(1);
  Submission job{queue.name, "Badge", {badge_}, {}, queue.ppdText, queue.basis};
  for (int i = 0; i < 3; ++i) {
    job.basis = currentBasis(job, terms_);
    EXPECT_EQ(submitJob(job, terms_), 17);
  }
  EXPECT_EQ(requests_, 2 + 2 + 3 * 2);
}

}  // namespace
}  // namespace cardpanels::host
