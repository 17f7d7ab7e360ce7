#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include "contract/line_lab.h"
#include "platform/common/qt_event_loop.h"

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
  void Settle() override {
    RunQtUntil([] { return false; }, std::chrono::milliseconds(100));
  }

 protected:
  QtEventLoop loop_;
  CallHandles handles_;
};

}  // namespace orvane
