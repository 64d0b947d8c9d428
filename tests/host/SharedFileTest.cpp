#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
