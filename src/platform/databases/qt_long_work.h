#pragma once

#include "platform/databases/long_work.h"

namespace orvane {

// Does the work in a thread of its own, while the calling one paints and receives everything but
// the user's keys and clicks, which wait.
class QtLongWork : public LongWork {
 public:
  void Run(const std::function<void()>& work) override;
};

}  // namespace orvane
