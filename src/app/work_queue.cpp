#include "app/work_queue.h"

#include <exception>
#include <utility>

namespace orvane {

void WorkQueue::Submit(Task task) {
  waiting_.push_back(std::move(task));
  if (!busy_) RunWaiting();
}

void WorkQueue::Yield(const Task& turn) {
  const bool wasBusy = std::exchange(busy_, false);
  RunWaiting();
  turn();
  busy_ = wasBusy;
}

void WorkQueue::RunWaiting() {
  while (!busy_ && !waiting_.empty()) {
    const Task task = std::move(waiting_.front());
    waiting_.pop_front();
    RunOne(task);
  }
}

void WorkQueue::RunOne(const Task& task) {
  busy_ = true;
  try {
    task();
  } catch (const std::exception&) {
    // Whoever wants an error reported does so in the task; the next task must not suffer from it.
  }
  busy_ = false;
}

}  // namespace orvane
