#pragma once

#include <optional>

#include "platform/support_log.h"
#include "platform/text/stopwatch.h"

namespace orvane {

// Tells how long a step of a call took, when the step is over.
class LogStep {
 public:
  // `step` outlives this.
  LogStep(SupportLog& log, const char* step) : log_(log), step_(step) {
    if (log.Listening()) watch_.emplace();
  }
  ~LogStep() {
    if (watch_) log_.Tell(LogTopic::kCall, {step_, ": ", watch_->Text()});
  }
  LogStep(const LogStep&) = delete;
  LogStep& operator=(const LogStep&) = delete;

 private:
  SupportLog& log_;
  const char* step_;
  std::optional<Stopwatch> watch_;
};

}  // namespace orvane
