#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace cardpanels::test {

/// Another value of an environment variable, for its own life.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const std::string& value) : name_(name) {
    const char* const before = std::getenv(name);
    if (before != nullptr) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  ~ScopedVariable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace cardpanels::test
