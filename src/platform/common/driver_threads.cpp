#include "platform/common/driver_threads.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/common/database_errors.h"

namespace orvane {

struct DriverThreads::Count {
  std::mutex mutex;
  std::condition_variable changed;
  int running = 0;

  void Add(int number) {
    const std::lock_guard lock(mutex);
    running += number;
    changed.notify_all();
  }
};

DriverThreads::DriverThreads() : count_(std::make_shared<Count>()) {}

void DriverThreads::Start(std::function<void()> work) const {
  count_->Add(1);
  try {
    std::thread([count = count_, work = std::move(work)]() mutable {
      work();
      work = nullptr;
      count->Add(-1);
    }).detach();
  } catch (const std::exception&) {
    count_->Add(-1);
    throw ErrorOf(DatabaseFailure::kOutOfMemory);
  }
}

bool DriverThreads::AllEnded(std::chrono::milliseconds within) const {
  std::unique_lock lock(count_->mutex);
  return count_->changed.wait_for(lock, within, [this] { return count_->running == 0; });
}

}  // namespace orvane
