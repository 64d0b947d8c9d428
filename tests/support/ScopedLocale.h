#pragma once

#include <clocale>
#include <stdexcept>
#include <string>

namespace cardpanels::test {

/// Another locale for the whole program, for its own life: `ScopedLocale(LC_MEASUREMENT, "…")`.
class ScopedLocale {
 public:
  ScopedLocale(int category, const std::string& name)
      : category_(category), before_(std::setlocale(category, nullptr)) {
    if (std::setlocale(category, name.c_str()) == nullptr) {
      throw std::runtime_error("no locale " + name);
    }
  }
  ~ScopedLocale() { std::setlocale(category_, before_.c_str()); }
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;

 private:
  int category_;
  std::string before_;
};

}  // namespace cardpanels::test
