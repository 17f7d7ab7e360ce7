#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

namespace orvane {

// Lets events run until `done` holds. False when that did not happen in a long time: ten seconds.
template <typename Condition>
bool RunUntil(const Condition& done) {
  QTimer wake;  // `done` may come true without an event
  wake.start(10);
  QElapsedTimer elapsed;
  elapsed.start();
  while (!done() && elapsed.elapsed() < 10'000) {
    QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
  }
  return done();
}

// Lets everything run that is pending, and what follows from it.
inline void RunPending() {
  for (int turn = 0; turn < 10; ++turn) QCoreApplication::processEvents();
}

}  // namespace orvane
