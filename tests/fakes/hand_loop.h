#pragma once

#include <chrono>
#include <list>
#include <memory>
#include <utility>
#include <vector>

#include "platform/event_loop.h"

namespace orvane {

// An event loop whose time passes only when a test says so.
class HandLoop : public EventLoop {
 public:
  void Post(Task task) override { posted_->push_back(std::move(task)); }

  std::unique_ptr<Timer> After(std::chrono::milliseconds delay, Task task) override {
    std::erase_if(*timers_, [](const auto& timer) { return !timer->task; });
    auto entry = std::make_shared<Entry>(Entry{now_ + delay, std::move(task)});
    timers_->push_back(entry);
    return std::make_unique<HandTimer>(entry);
  }

  void RunPendingOnce() override {
    for (auto left = posted_->size(); left > 0 && !posted_->empty(); --left) {
      const Task task = std::move(posted_->front());
      posted_->pop_front();
      task();
    }
  }

  void Quit() override { quit = true; }

  // Lets time pass; due tasks run in the order of their times.
  void Advance(std::chrono::milliseconds by) {
    const auto end = now_ + by;
    RunPendingOnce();
    while (auto next = EarliestUntil(end)) {
      now_ = next->due;
      const Task task = std::exchange(next->task, nullptr);
      task();
      RunPendingOnce();
    }
    now_ = end;
  }

  // Tasks that wait for a time.
  int PendingTimers() const {
    int count = 0;
    for (const auto& entry : *timers_) count += entry->task ? 1 : 0;
    return count;
  }

  bool quit = false;

 private:
  struct Entry {
    std::chrono::milliseconds due;
    Task task;
  };

  class HandTimer : public Timer {
   public:
    explicit HandTimer(std::shared_ptr<Entry> entry) : entry_(std::move(entry)) {}
    ~HandTimer() override { entry_->task = nullptr; }
    HandTimer(const HandTimer&) = delete;
    HandTimer& operator=(const HandTimer&) = delete;

   private:
    std::shared_ptr<Entry> entry_;
  };

  std::shared_ptr<Entry> EarliestUntil(std::chrono::milliseconds end) const {
    std::shared_ptr<Entry> best;
    for (const auto& entry : *timers_) {
      if (!entry->task || entry->due > end) continue;
      if (!best || entry->due < best->due) best = entry;
    }
    return best;
  }

  std::chrono::milliseconds now_{0};
  std::shared_ptr<std::list<Task>> posted_ = std::make_shared<std::list<Task>>();
  std::shared_ptr<std::vector<std::shared_ptr<Entry>>> timers_ =
      std::make_shared<std::vector<std::shared_ptr<Entry>>>();
};

}  // namespace orvane
