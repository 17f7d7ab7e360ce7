#pragma once

#include <functional>
#include <memory>
#include <string>

#include "fakes/recording_line_events.h"
#include "platform/line_service_provider.h"

namespace orvane {

// One implementation of lines with everything it needs to place calls in a test: the far end, the
// passing of time, and the numbers that lead to each course.
class LineLab {
 public:
  virtual ~LineLab() = default;
  virtual LineServiceProvider& Provider() = 0;
  // Lets time pass until the condition holds or a bound is reached; whether it holds.
  virtual bool RunUntil(const std::function<bool()>& condition) = 0;
  // Lets everything happen that is going to happen by itself.
  virtual void Settle() = 0;

  std::string answered, busy, noAnswer, rejected, farEndHangsUp, unknown;
};

using LineLabFactory = std::function<std::unique_ptr<LineLab>()>;

}  // namespace orvane
