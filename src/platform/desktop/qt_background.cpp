#include "platform/desktop/qt_background.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QMetaObject>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace orvane {
namespace {

// How long the window stands still between two looks at what it has to paint.
constexpr std::chrono::milliseconds kPaintInterval{20};

}  // namespace

// The queue and its thread, which share it.
class QtBackground::Worker {
 public:
  // MinGW's threads do not bear being detached while they end, so it does not go on before it is.
  static void Start(const std::shared_ptr<Worker>& worker) {
    const std::lock_guard detaching(worker->mutex_);
    std::thread([worker] { worker->Run(); }).detach();
  }

  void Add(Task work) {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(work));
    changed_.notify_all();
  }

  bool WaitForAll(std::chrono::milliseconds within) {
    std::unique_lock lock(mutex_);
    return changed_.wait_for(lock, within, [this] { return waiting_.empty() && !busy_; });
  }

  void End() {
    const std::lock_guard lock(mutex_);
    waiting_.clear();
    ending_ = true;
    changed_.notify_all();
  }

 private:
  void Run() {
    std::unique_lock lock(mutex_);
    while (true) {
      changed_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
      if (waiting_.empty()) return;
      Task work = std::move(waiting_.front());
      waiting_.pop_front();
      busy_ = true;
      lock.unlock();
      work();
      // What it was given dies before anyone is told that it is done.
      work = nullptr;
      lock.lock();
      busy_ = false;
      changed_.notify_all();
    }
  }

  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Task> waiting_;
  bool busy_ = false;
  bool ending_ = false;
};

QtBackground::QtBackground() : worker_(std::make_shared<Worker>()) {
  Worker::Start(worker_);
}

QtBackground::~QtBackground() {
  worker_->End();
}

void QtBackground::Do(Task work) {
  worker_->Add(std::move(work));
}

void QtBackground::Tell(Task task) {
  QMetaObject::invokeMethod(&window_, std::move(task), Qt::QueuedConnection);
}

bool QtBackground::Finish(std::chrono::milliseconds within) {
  const auto limit = std::chrono::steady_clock::now() + within;
  while (!worker_->WaitForAll(kPaintInterval)) {
    if (std::chrono::steady_clock::now() >= limit) return false;
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  return true;
}

}  // namespace orvane
