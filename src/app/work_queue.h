#pragma once

#include <deque>
#include <functional>

namespace orvane {

// Keeps the program's procedures from overtaking each other on their one thread. Clicks, line
// events and host commands are submitted here: when nothing is in the middle of its work they run
// at once, otherwise (a message box is up, say) they wait and run afterwards, in order.
class WorkQueue {
 public:
  using Task = std::function<void()>;

  // Runs the task now or after the work in progress. Exceptions end the task, not the queue.
  void Submit(Task task);

  // For a procedure that lets events run between two steps on purpose: `turn` runs with the queue
  // open, so what it submits runs inside the turn.
  void Yield(const Task& turn);

  bool Busy() const { return busy_; }
  // Drops what waits; for the end of the program.
  void Clear() { waiting_.clear(); }

 private:
  void RunWaiting();
  void RunOne(const Task& task);

  bool busy_ = false;
  std::deque<Task> waiting_;
};

}  // namespace orvane
