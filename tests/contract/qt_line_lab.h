#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include "contract/line_lab.h"
#include "platform/desktop/qt_event_loop.h"

namespace orvane {

// Runs the toolkit's event loop until the condition holds, 10 seconds at most; whether it holds.
inline bool RunQtUntil(const std::function<bool()>& condition,
                       std::chrono::milliseconds bound = std::chrono::seconds(10)) {
  const QDeadlineTimer deadline(bound);
  QTimer heartbeat;
  heartbeat.start(std::chrono::milliseconds(2));
  while (!condition() && !deadline.hasExpired()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return condition();
}

// A lab in real time.
class QtLineLab : public LineLab {
 public:
  bool RunUntil(const std::function<bool()>& condition) override { return RunQtUntil(condition); }
  // Turns of the loop are counted as well as time, because a busy machine takes the time away.
  void Settle() override {
    const QDeadlineTimer least(std::chrono::milliseconds(100));
    int turns = 0;
    RunQtUntil([&] { return ++turns > 50 && least.hasExpired(); });
  }

 protected:
  QtEventLoop loop_;
  CallHandles handles_;
};

}  // namespace orvane
