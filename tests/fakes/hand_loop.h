#pragma once

#include <algorithm>
#include <chrono>
#include <deque>
#include <map>
#include <memory>
#include <utility>

#include "platform/event_loop.h"

namespace orvane {

// An event loop whose time passes only when a test says so.
class HandLoop : public EventLoop {
 public:
  void Post(Task task) override { posted_.push_back(std::move(task)); }

  std::unique_ptr<Timer> After(std::chrono::milliseconds delay, Task task) override {
    const auto shared = std::make_shared<Task>(std::move(task));
    timers_.emplace(now_ + delay, shared);
    return std::make_unique<HandTimer>(shared);
  }

  void RunPendingOnce() override {
    for (auto left = posted_.size(); left > 0 && !posted_.empty(); --left) {
      const Task task = std::move(posted_.front());
      posted_.pop_front();
      task();
    }
  }

  void Quit() override { quit = true; }

  // Lets time pass; due tasks run in the order of their times.
  void Advance(std::chrono::milliseconds by) {
    const auto end = now_ + by;
    RunPendingOnce();
    while (!timers_.empty() && timers_.begin()->first <= end) {
      const auto next = timers_.extract(timers_.begin());
      now_ = std::max(now_, next.key());
      if (const Task task = std::exchange(*next.mapped(), nullptr)) task();
      RunPendingOnce();
    }
    now_ = std::max(now_, end);
  }

  // Tasks that wait for a time.
  std::ptrdiff_t PendingTimers() const {
    return std::count_if(timers_.begin(), timers_.end(), [](const auto& t) { return !!*t.second; });
  }

  bool quit = false;

 private:
  // Shares its task with the loop; an empty one is cancelled.
  struct HandTimer : Timer {
    explicit HandTimer(std::shared_ptr<Task> shared) : task(std::move(shared)) {}
    ~HandTimer() override { *task = nullptr; }
    HandTimer(const HandTimer&) = delete;
    HandTimer& operator=(const HandTimer&) = delete;
    std::shared_ptr<Task> task;
  };

  std::chrono::milliseconds now_{0};
  std::deque<Task> posted_;
  std::multimap<std::chrono::milliseconds, std::shared_ptr<Task>> timers_;
};

}  // namespace orvane
