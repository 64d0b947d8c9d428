#pragma once

#include <filesystem>
#include <string>

namespace cardpanels::test {

/// A folder of a test's own, gone with all in it at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

  /// The path of a file `name` in here that holds `content`. Folders in `name` are made.
  std::string write(const std::string& name, const std::string& content) const;

 private:
  std::filesystem::path path_;
};

/// What the file at `path` holds.
std::string fileContent(const std::filesystem::path& path);

}  // namespace cardpanels::test
