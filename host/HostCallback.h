#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/JobOptions.h"
#include "platform/CallbackObject.h"
#include "platform/ConstraintHandling.h"
#include "platform/PlugIn.h"
#include "platform/Text.h"

namespace cardpanels::host {

/// One job's options as the panels see their host, without constraint handling.
class HostCallback : public platform::CallbackObject {
 public:
  /// `job` must outlive this.
  explicit HostCallback(JobOptions& job) : job_(job) {}

  ppd_file_t* ppdFile() override { return job_.ppd(); }
  std::string_view className() const override { return "HostCallback"; }

 protected:
  JobOptions& job() { return job_; }

 private:
  JobOptions& job_;
};

/// The same with constraint handling: requests go to the job, and panels are told of what else a
/// granted request changed.
class ConstrainingHostCallback : public HostCallback, public platform::ConstraintHandling {
 public:
  using Requested = std::function<void(const platform::Text& key, const platform::Text& choice,
                                       const ChangeResult& result)>;

  using HostCallback::HostCallback;

  /// The panels to tell; they stay the caller's. Null before there are any.
  void setPanels(std::shared_ptr<const platform::PanelArray> panels) {
    panels_ = std::move(panels);
  }

  /// Called after each request of a panel.
  void setRequested(Requested requested) { requested_ = std::move(requested); }

  bool willChangePPDOptionKeyValue_ppdChoice(const platform::Text& key,
                                             const platform::Text& choice) override;

  /// Tells every panel of `changes`, but for that of option `known`.
  void tellPanels(const std::vector<Option>& changes, const platform::Text& known = {}) const;

 protected:
  /// What becomes of a request.
  virtual ChangeResult decide(const platform::Text& key, const platform::Text& choice) {
    return job().request(key, choice);
  }

 private:
  std::shared_ptr<const platform::PanelArray> panels_;
  Requested requested_;
};

}  // namespace cardpanels::host
