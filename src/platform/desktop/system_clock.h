#pragma once

#include "platform/clock.h"

namespace orvane {

// The machine's clock in its local time.
class SystemClock : public Clock {
 public:
  Moment Now() const override;
};

}  // namespace orvane
