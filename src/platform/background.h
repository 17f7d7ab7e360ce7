#pragma once

#include <chrono>
#include <functional>

namespace orvane {

// Work beside the window's thread: what waits for disks, locks of other programs and network
// folders. One piece after the other, in the order in which they were handed over.
class Background {
 public:
  using Task = std::function<void()>;

  virtual ~Background() = default;

  // Hands work over; it throws nothing.
  virtual void Do(Task work) = 0;
  // Runs the task on the window's thread, on a later turn of its loop. For the work to call.
  virtual void Tell(Task task) = 0;
  // Waits until all that was handed over is done, at most so long; false when it is not. The window
  // paints meanwhile. For the end of the program.
  virtual bool Finish(std::chrono::milliseconds within) = 0;
};

// Does the work where it is handed over.
class ImmediateBackground : public Background {
 public:
  void Do(Task work) override { work(); }
  void Tell(Task task) override { task(); }
  bool Finish(std::chrono::milliseconds /*within*/) override { return true; }
};

}  // namespace orvane
