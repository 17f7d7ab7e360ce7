#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace orvane {

// Threads inside a driver. Nothing can end such a call from outside, so whoever waited long enough
// leaves its thread behind. Copies count the same threads.
class DriverThreads {
 public:
  DriverThreads();

  // Runs the work, which throws nothing, in a thread of its own. Throws DatabaseError when the
  // system has no thread left.
  void Start(std::function<void()> work) const;
  // Waits until no thread is running, at most this long. As long as one is, the libraries that it
  // is in must not be cleaned up.
  bool AllEnded(std::chrono::milliseconds within) const;

 private:
  struct Count;
  std::shared_ptr<Count> count_;
};

}  // namespace orvane
