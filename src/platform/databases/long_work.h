#pragma once

#include <functional>

namespace orvane {

// Runs what may take long. The program has one thread for everything that it decides; work that
// only waits for a disk or a server is done elsewhere meanwhile, so that the window keeps painting.
class LongWork {
 public:
  virtual ~LongWork() = default;
  // Returns when the work is done; what it throws is thrown here. Nothing that the caller uses may
  // be touched by the work except what it was given for that.
  virtual void Run(const std::function<void()>& work) = 0;
};

// Does the work where it is asked for.
class ImmediateWork : public LongWork {
 public:
  void Run(const std::function<void()>& work) override { work(); }
};

}  // namespace orvane
