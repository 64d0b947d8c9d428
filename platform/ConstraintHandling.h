#pragma once

#include "platform/Text.h"

namespace cardpanels::platform {

/// What a host offers that marks choices itself and checks them against the PPD's constraints.
class ConstraintHandling {
 public:
  ConstraintHandling() = default;
  ConstraintHandling(const ConstraintHandling&) = delete;
  ConstraintHandling& operator=(const ConstraintHandling&) = delete;
  virtual ~ConstraintHandling();

  /// Called by a panel on the user's or its own behalf: please mark `choice` (a choice's keyword,
  /// or the value of an option that takes any) for the option `key`. Answers whether the host did;
  /// the marks in `ppdFile` are up to date when it returns, whatever the answer.
  virtual bool willChangePPDOptionKeyValue_ppdChoice(const Text& key, const Text& choice) = 0;
};

}  // namespace cardpanels::platform
