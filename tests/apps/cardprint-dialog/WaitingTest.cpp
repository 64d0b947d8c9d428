// What the user of the dialog sees while a server or a disk takes its time.
#include <cups/cups.h>
#include <glibmm/main.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <gtkmm/button.h>
#include <gtkmm/dialog.h>
#include <gtkmm/entry.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <thread>

#include "apps/cardprint-dialog/CardDialog.h"
#include "apps/cardprint-dialog/GtkWindows.h"
#include "apps/cardprint-dialog/SendingDialog.h"
#include "apps/cardprint/CardJob.h"
#include "tests/ports/gtk3/VirtualDisplay.h"
#include "tests/ports/gtk3/Widgets.h"
#include "tests/support/BuiltFiles.h"
#include "tests/support/OddServer.h"
#include "tests/support/PrivatePrintServer.h"
#include "tests/support/RecordedLog.h"
#include "tests/support/TestPPD.h"

namespace cardpanels::cardprint {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Clock = std::chrono::steady_clock;

/// How long this thread could have run so far, but other processes had the cores. As Linux counts
/// it.
Clock::duration waitedForCore() {
  std::int64_t ran = 0;
  std::int64_t waited = 0;
  std::ifstream("/proc/thread-self/schedstat") >> ran >> waited;
  return std::chrono::nanoseconds(waited);
}

/// Counts how long the main loop has answered nobody, beyond what it waited for a core.
class Gaps {
 public:
  Gaps() {
    timer_ = Glib::signal_timeout().connect(
        [this] {
          count();
          return true;
        },
        5, Glib::PRIORITY_HIGH);
  }
  ~Gaps() { timer_.disconnect(); }
  Gaps(const Gaps&) = delete;
  Gaps& operator=(const Gaps&) = delete;

  std::chrono::milliseconds longest() {
    count();
    return std::chrono::duration_cast<std::chrono::milliseconds>(longest_);
  }

 private:
  void count() {
    const auto now = Clock::now() - waitedForCore();
    longest_ = std::max(longest_, now - last_);
    last_ = now;
  }

  Clock::time_point last_ = Clock::now() - waitedForCore();
  Clock::duration longest_{};
  sigc::connection timer_;
};

/// The window with that title, once it shows.
Gtk::Dialog* shownDialog(const std::string& title) {
  for (Gtk::Window* each : Gtk::Window::list_toplevels()) {
    if (each->get_mapped() && each->get_title() == title) return dynamic_cast<Gtk::Dialog*>(each);
  }
  return nullptr;
}

/// A person who does something in each dialog of a title as it comes up.
class Person {
 public:
  Person(std::string title, std::function<void(Gtk::Dialog&)> act) {
    timer_ = Glib::signal_timeout().connect(
        [this, title = std::move(title), act = std::move(act)] {
          Gtk::Dialog* const dialog = shownDialog(title);
          constexpr const char* kSeen = "seen";
          if (dialog == nullptr || dialog->get_data(kSeen) != nullptr) return true;
          dialog->set_data(kSeen, this);
          ++times;
          act(*dialog);
          return true;
        },
        50);
  }
  ~Person() { timer_.disconnect(); }
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;

  int times = 0;

 private:
  sigc::connection timer_;
};

void cancel(Gtk::Dialog& dialog) { dialog.response(Gtk::RESPONSE_CANCEL); }

class Waiting : public testing::Test {
 protected:
  Waiting() {
    setenv("CARDPANELS_BUNDLE", test::builtBundle().c_str(), 1);
    // What GTK does once for its first window is nobody's gap.
    Gtk::Dialog first("first");
    first.add_button("_Cancel", Gtk::RESPONSE_CANCEL);
    first.show();
    test::handleEventsUntil([&] { return first.get_mapped(); });
  }

  static Arguments printing(const std::string& file) {
    Arguments arguments;
    arguments.queue = {"card", ""};
    arguments.files = {file};
    return arguments;
  }

  test::RecordedLog log_;
  test::TemporaryFolder folder_;
  std::string badge_ = folder_.write("badge.txt", "Ada\n");
  GtkWindows windows_;
};

class WaitingForAServer : public Waiting {
 protected:
  WaitingForAServer() {
    server_.addQueue("card", test::testPPD({test::laminateOption()}));
    server_.enable("card");
  }

  /// How the jobs have ended, a moment after they were sent.
  std::vector<std::string> endedJobs() const {
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    std::vector<std::string> ends;
    for (int id = 1; id <= server_.jobCount(); ++id) ends.push_back(server_.endedJob(id));
    return ends;
  }

  test::PrivatePrintServer server_;
};

TEST_F(WaitingForAServer, ThatStandsStillWhileTheQueueIsReadIsCancelled) {
  server_.suspend();
  Person person("Reading the printer's options…", cancel);
  Gaps gaps;
  EXPECT_THROW(CardJob(printing(badge_), windows_), Cancelled);
  EXPECT_LE(gaps.longest(), std::chrono::milliseconds(100));
  EXPECT_EQ(person.times, 1);
}

TEST_F(WaitingForAServer, ThatStandsStillWhileTheJobIsSentIsCancelledAndPrintsNothing) {
  CardJob job(printing(badge_), windows_);
  server_.suspend();
  Person person("Sending the job…", cancel);
  Gaps gaps;
  EXPECT_THROW(job.send(), Cancelled);
  EXPECT_LE(gaps.longest(), std::chrono::milliseconds(100));
  server_.resume();
  EXPECT_THAT(endedJobs(), testing::AnyOf(IsEmpty(), ElementsAre("canceled")));
}

TEST_F(WaitingForAServer, AFileOfTwoGibibytesIsCancelledOnItsWay) {
  const std::string large = folder_.write("large.txt", "Ada\n");
  std::filesystem::resize_file(large, std::uintmax_t{1} << 31U);
  CardJob job(printing(large), windows_);
  Person person("Sending the job…", cancel);
  Gaps gaps;
  EXPECT_THROW(job.send(), Cancelled);
  EXPECT_LE(gaps.longest(), std::chrono::milliseconds(100));
  EXPECT_THAT(endedJobs(), ElementsAre("canceled"));
}

TEST_F(WaitingForAServer, APipeThatNobodyWritesIsCancelled) {
  const std::string pipe = (folder_.path() / "pipe").string();
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  CardJob job(printing(pipe), windows_);
  Person person("Sending the job…", cancel);
  Gaps gaps;
  EXPECT_THROW(job.send(), Cancelled);
  EXPECT_LE(gaps.longest(), std::chrono::milliseconds(100));
  EXPECT_THAT(endedJobs(), IsEmpty());
}

TEST_F(WaitingForAServer, TheDialogStaysWhenSendingIsCancelled) {
  CardJob job(printing(badge_), windows_);
  CardDialog dialog(job, windows_.waiter());
  server_.suspend();
  Person sending("Sending the job…", [&](Gtk::Dialog& window) {
    EXPECT_FALSE(dialog.get_sensitive());
    cancel(window);
    server_.resume();
  });
  int pressed = 0;
  Person printing("Print on card", [&](Gtk::Dialog& window) {
    ++pressed;
    window.response(Gtk::RESPONSE_OK);
    // Once it is back.
    Glib::signal_timeout().connect_once(
        [&window] {
          EXPECT_TRUE(window.get_sensitive());
          window.response(Gtk::RESPONSE_CANCEL);
        },
        1500);
  });
  EXPECT_EQ(dialog.choose(), std::nullopt);
  EXPECT_EQ(sending.times, 1);
  EXPECT_EQ(pressed, 1);
}

TEST_F(WaitingForAServer, FiveHundredFilesLeaveTheWindowAnswering) {
  server_.stop("card", "Cleaning");
  Arguments arguments = printing(badge_);
  arguments.files.assign(500, badge_);
  CardJob job(arguments, windows_);
  CardDialog dialog(job, windows_.waiter());
  dialog.show();
  test::handleEventsUntil([&] { return dialog.get_mapped(); });
  Gaps gaps;
  SendingDialog sending(dialog, job, windows_.waiter(), false);
  sigc::connection closing = Glib::signal_timeout().connect(
      [&sending] {
        if (!sending.batch().isSending()) sending.response(Gtk::RESPONSE_CLOSE);
        return true;
      },
      50);
  sending.send();
  closing.disconnect();
  EXPECT_LE(gaps.longest(), std::chrono::milliseconds(100));
  EXPECT_EQ(sending.batch().count(dialog::BatchJob::State::sent), 500U);
}

TEST_F(WaitingForAServer, EscapeEndsSendingBeforeItClosesTheWindow) {
  server_.stop("card", "Cleaning");
  Arguments arguments = printing(badge_);
  arguments.files.assign(500, badge_);
  CardJob job(arguments, windows_);
  CardDialog dialog(job, windows_.waiter());
  dialog.show();
  SendingDialog sending(dialog, job, windows_.waiter(), false);
  using State = dialog::BatchJob::State;
  const auto& batch = sending.batch();
  sigc::connection escaping = Glib::signal_timeout().connect(
      [&] {
        if (batch.count(State::sent) >= 20) g_signal_emit_by_name(sending.gobj(), "close");
        return true;
      },
      20);
  sending.send();
  escaping.disconnect();
  EXPECT_FALSE(batch.isSending());
  EXPECT_LT(batch.count(State::sent), 500U);
  EXPECT_EQ(batch.count(State::sent) + batch.count(State::waiting), 500U);
  const auto ids = batch.sentIds();
  for (int id = 1; id <= server_.jobCount(); ++id) {
    const bool isSent = std::find(ids.begin(), ids.end(), id) != ids.end();
    auto found = server_.job(id);
    const bool canPrint = found["job-state"] != "canceled" && found["number-of-documents"] == "1";
    EXPECT_EQ(canPrint, isSent) << id;
  }
}

/// A server that wants the password "swordfish" of whoever makes a job.
void serveGuarded(test::OddServer::Client& client) {
  for (std::string request; !(request = client.request()).empty();) {
    // "ada:swordfish" as HTTP has it.
    const bool isKnown = request.find("Basic YWRhOnN3b3JkZmlzaA==") != std::string::npos;
    if (!isKnown) {
      client.send(
          "HTTP/1.1 401 Unauthorized\r\nWWW-Authenticate: Basic realm=\"cards\"\r\n"
          "Content-Length: 0\r\n\r\n");
    } else if (request.starts_with("GET")) {
      client.send(
          test::httpAnswer(test::testPPD({test::laminateOption()}), "application/vnd.cups-ppd"));
    } else {
      client.send(test::queueAnswer());
    }
  }
}

TEST_F(Waiting, APasswordIsAskedForInAWindow) {
  const test::OddServer server(serveGuarded);
  std::vector<std::string> passwords{"haddock", "swordfish"};
  Person person("Password Needed", [&](Gtk::Dialog& window) {
    EXPECT_EQ(window.get_transient_for(), nullptr) << "no window of ours is there yet";
    const auto entries = test::all<Gtk::Entry>(window);
    ASSERT_EQ(entries.size(), 2U);
    auto& user = dynamic_cast<Gtk::Entry&>(*entries[0]);
    auto& password = dynamic_cast<Gtk::Entry&>(*entries[1]);
    EXPECT_FALSE(password.get_visibility());
    EXPECT_EQ(password.get_input_purpose(), Gtk::INPUT_PURPOSE_PASSWORD);
    EXPECT_EQ(window.get_focus(), &password) << "the user is known";
    EXPECT_EQ(user.get_text(), passwords.size() == 2 ? cupsUser() : "ada");
    const auto labels = test::all<Gtk::Label>(window);
    ASSERT_GE(labels.size(), 3U);
    const auto text = [&labels](std::size_t i) -> std::string {
      return dynamic_cast<Gtk::Label&>(*labels[i]).get_text();
    };
    EXPECT_NE(text(0).find("card"), std::string::npos) << text(0);
    EXPECT_TRUE(dynamic_cast<Gtk::Label&>(*labels[0]).get_line_wrap()) << "a name may be long";
    EXPECT_EQ(text(1), "User name");
    EXPECT_EQ(text(2), "Password");
    for (Gtk::Entry* each : {&user, &password}) EXPECT_EQ(each->list_mnemonic_labels().size(), 1U);
    user.set_text("ada");
    password.set_text(passwords.front());
    passwords.erase(passwords.begin());
    password.activate();  // Enter
  });
  Gaps gaps;
  const CardJob job(printing(badge_), windows_);
  EXPECT_EQ(job.printerName(), "card");
  EXPECT_EQ(person.times, 2);
  EXPECT_LE(gaps.longest(), std::chrono::milliseconds(100));
}

TEST_F(Waiting, APasswordThatIsNotGivenEndsIt) {
  const test::OddServer server(serveGuarded);
  Person person("Password Needed", cancel);
  EXPECT_THROW(CardJob(printing(badge_), windows_), Cancelled);
}

}  // namespace
}  // namespace cardpanels::cardprint
