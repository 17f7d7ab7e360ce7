#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace orvane {

// The one thread's event loop.
class EventLoop {
 public:
  using Task = std::function<void()>;

  // A pending task; destroying it cancels the task.
  class Timer {
   public:
    virtual ~Timer() = default;
  };

  virtual ~EventLoop() = default;

  // Runs the task on a later turn of the loop; posted tasks keep their order.
  virtual void Post(Task task) = 0;
  // Runs the task once, not before `delay` has passed.
  [[nodiscard]] virtual std::unique_ptr<Timer> After(std::chrono::milliseconds delay,
                                                     Task task) = 0;
  // Lets everything that is pending now run, without waiting for more.
  virtual void RunPendingOnce() = 0;
  // Ends the loop and with it the program.
  virtual void Quit() = 0;
};

}  // namespace orvane
