#include <getopt.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "apps/cardprint/Arguments.h"
#include "host/Program.h"

namespace cardpanels::cardprint {
namespace {

using host::Option;
using host::UsageError;
using testing::ElementsAre;
using testing::IsEmpty;

Arguments parsed(std::vector<std::string> words) {
  words.insert(words.begin(), "cardprint");
  std::vector<char*> argv;
  argv.reserve(words.size() + 1);
  for (std::string& word : words) argv.push_back(word.data());
  argv.push_back(nullptr);
  optind = 0;  // getopt starts anew
  return parseArguments(static_cast<int>(words.size()), argv.data());
}

TEST(Arguments, NothingMeansTheDefaultQueueAndADialog) {
  const Arguments arguments = parsed({});
  EXPECT_EQ(arguments.ppd, "");
  EXPECT_EQ(arguments.queue, host::QueueName{});
  EXPECT_THAT(arguments.options, IsEmpty());
  EXPECT_THAT(arguments.files, IsEmpty());
  EXPECT_TRUE(arguments.dialog);
  EXPECT_FALSE(arguments.trace);
}

TEST(Arguments, OptionsAndFilesStandInAnyOrder) {
  const Arguments arguments =
      parsed({"/dev/null", "-o", "a=1", "--no-dialog", "-d", "card/visitors", "-o", "b=2 c=3",
              "--trace", "--", "/dev/zero"});
  EXPECT_EQ(arguments.queue, (host::QueueName{"card", "visitors"}));
  EXPECT_THAT(arguments.options, ElementsAre(Option{"a", "1"}, Option{"b", "2"}, Option{"c", "3"}));
  EXPECT_THAT(arguments.files, ElementsAre("/dev/null", "/dev/zero"));
  EXPECT_FALSE(arguments.dialog);
  EXPECT_TRUE(arguments.trace);
}

TEST(Arguments, LettersOfLpAreOptionsInTheirOrder) {
  const Arguments arguments = parsed({"-n", "2", "-o", "copies=3", "-q5", "-Hhold", "-t", "A b",
                                      "-P1-2", "-s", "-E", "-U", "ada", "-h", "host:632"});
  EXPECT_THAT(arguments.options,
              ElementsAre(Option{"copies", "2"}, Option{"copies", "3"}, Option{"job-priority", "5"},
                          Option{"job-hold-until", "indefinite"}, Option{"job-name", "A b"},
                          Option{"page-ranges", "1-2"}));
  EXPECT_TRUE(arguments.silent);
  EXPECT_TRUE(arguments.server.isEncrypted);
  EXPECT_EQ(arguments.server.user, "ada");
  EXPECT_EQ(arguments.server.server, "host:632");
}

TEST(Arguments, HelpWinsOverWhatFollows) {
  EXPECT_TRUE(parsed({"--help", "--ppd", "a", "-d", "b"}).help);
  EXPECT_TRUE(parsed({"--version", "/no/such/file"}).version);
}

TEST(Arguments, APPDAndAQueueExcludeEachOther) {
  EXPECT_THROW(parsed({"--ppd", "card.ppd", "-d", "card"}), UsageError);
}

TEST(Arguments, APPDTakesNoFiles) {
  EXPECT_THROW(parsed({"--ppd", "card.ppd", "/dev/null"}), UsageError);
}

TEST(Arguments, NamesMustNotBeEmpty) {
  EXPECT_THROW(parsed({"--ppd", ""}), UsageError);
  EXPECT_THROW(parsed({"-d", ""}), UsageError);
  EXPECT_THROW(parsed({"-d", "/visitors"}), UsageError);
}

}  // namespace
}  // namespace cardpanels::cardprint
