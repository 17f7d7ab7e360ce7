#pragma once

#include <functional>
#include <memory>
#include <string>

#include "fakes/recording_line_events.h"
#include "platform/lines/line_service_provider.h"

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

  // The numbers of the simulated lines and of the demo's SIP far end; a lab may have its own.
  std::string answered = "0301234", busy = "03099901", noAnswer = "03099902";
  std::string rejected = "03099903", farEndHangsUp = "03099905", unknown = "03099906";
};

using LineLabFactory = std::function<std::unique_ptr<LineLab>()>;

struct LineImplementation {
  const char* name;
  LineLabFactory make;
};

}  // namespace orvane
