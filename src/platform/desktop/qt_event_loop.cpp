#include "platform/desktop/qt_event_loop.h"

#include <QCoreApplication>
#include <algorithm>
#include <limits>
#include <utility>

namespace orvane {
namespace {

class QtTimer : public EventLoop::Timer {
 public:
  QtTimer(std::chrono::milliseconds delay, EventLoop::Task task) : task_(std::move(task)) {
    constexpr std::chrono::milliseconds kLongest{std::numeric_limits<int>::max()};
    timer_.setSingleShot(true);
    // A coarse timer may fire too early.
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
      // The task may destroy this timer.
      const EventLoop::Task due = std::exchange(task_, nullptr);
      due();
    });
    timer_.start(std::clamp(delay, std::chrono::milliseconds::zero(), kLongest));
  }

 private:
  EventLoop::Task task_;
  QTimer timer_;
};

}  // namespace

QtEventLoop::QtEventLoop() {
  turn_.setSingleShot(true);
  turn_.setInterval(0);
  QObject::connect(&turn_, &QTimer::timeout, &turn_, [this] { RunPosted(); });
}

void QtEventLoop::Post(Task task) {
  posted_.push_back(std::move(task));
  turn_.start();
}

std::unique_ptr<EventLoop::Timer> QtEventLoop::After(std::chrono::milliseconds delay, Task task) {
  return std::make_unique<QtTimer>(delay, std::move(task));
}

void QtEventLoop::RunPendingOnce() {
  QCoreApplication::processEvents();
}

void QtEventLoop::Quit() {
  quit_ = true;
  QCoreApplication::exit(0);
}

int QtEventLoop::Run() {
  return quit_ ? 0 : QCoreApplication::exec();
}

void QtEventLoop::RunPosted() {
  for (std::size_t left = posted_.size(); left > 0 && !posted_.empty(); --left) {
    const Task task = std::move(posted_.front());
    posted_.pop_front();
    // A task may open a message box, whose own loop then goes on with the rest.
    if (!posted_.empty()) turn_.start();
    task();
  }
}

}  // namespace orvane
