#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "host/SharedFile.h"
#include "tests/support/TemporaryFolder.h"

namespace cardpanels::host {
namespace {

std::ptrdiff_t filesIn(const test::TemporaryFolder& folder) {
  return std::distance(std::filesystem::directory_iterator(folder.path()),
                       std::filesystem::directory_iterator());
}

TEST(SharedFile, OneThatIsNotThereIsEmptyAndAFolderIsTold) {
  const test::TemporaryFolder folder;
  EXPECT_EQ(readFile(folder.path() / "none"), "");
  EXPECT_THROW(readFile(folder.path()), std::system_error);
}

TEST(SharedFile, WhatSomebodyWritesWhoDoesNotWaitIsReadAgain) {
  const test::TemporaryFolder folder;
  const std::string path = folder.write("file", "old\n");
  int calls = 0;
  changeFile(path, [&](const std::string& content) {
    if (calls++ == 0) folder.write("file", "old\ntheirs\n");
    return content + "ours\n";
  });
  EXPECT_EQ(readFile(path), "old\ntheirs\nours\n");
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(filesIn(folder), 1) << "what was to take its place is gone";
}

TEST(SharedFile, OneThatSomebodyKeepsLockedIsGivenUpAndLeft) {
  const test::TemporaryFolder folder;
  const std::string path = folder.write("file", "old\n");
  const int theirs = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  ASSERT_EQ(flock(theirs, LOCK_EX), 0);
  try {
    changeFile(path, [](const std::string& content) { return content + "ours\n"; });
    ADD_FAILURE() << "it was changed";
  } catch (const std::system_error& error) {
    EXPECT_EQ(error.code().value(), EBUSY);
  }
  close(theirs);
  EXPECT_EQ(readFile(path), "old\n");
}

TEST(SharedFile, WhenTheChangeFailsItStaysAsItWas) {
  const test::TemporaryFolder folder;
  const std::string path = folder.write("file", "old\n");
  const auto fail = [](const std::string&) -> std::string { throw std::runtime_error("no"); };
  EXPECT_THROW(changeFile(path, fail), std::runtime_error);
  EXPECT_EQ(readFile(path), "old\n");
  EXPECT_EQ(filesIn(folder), 1);
}

}  // namespace
}  // namespace cardpanels::host
