#include "platform/databases/driver_threads.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/databases/database_errors.h"

namespace orvane {

struct DriverThreads::Count {
  std::mutex mutex;
  std::condition_variable changed;
  int running = 0;

  void EndOne() {
    const std::lock_guard lock(mutex);
    --running;
    changed.notify_all();
  }
};

DriverThreads::DriverThreads() : count_(std::make_shared<Count>()) {}

void DriverThreads::Start(std::function<void()> work) const {
  // MinGW's threads do not bear being detached while they end, so none goes on before it is.
  const std::lock_guard detaching(count_->mutex);
  try {
    std::thread([count = count_, work = std::move(work)]() mutable {
      { const std::lock_guard detached(count->mutex); }
      work();
      work = nullptr;
      count->EndOne();
    }).detach();
  } catch (const std::exception&) {
    throw ErrorOf(DatabaseFailure::kOutOfMemory);
  }
  ++count_->running;
}

bool DriverThreads::AllEnded(std::chrono::milliseconds within) const {
  std::unique_lock lock(count_->mutex);
  return count_->changed.wait_for(lock, within, [this] { return count_->running == 0; });
}

}  // namespace orvane
