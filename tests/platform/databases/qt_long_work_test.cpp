#include "platform/databases/qt_long_work.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <chrono>
#include <semaphore>
#include <stdexcept>

namespace orvane {
namespace {

// The work only ends when something else happens in the thread that waits for it.
TEST(QtLongWork, LeavesTheWaitingThreadAlive) {
  std::binary_semaphore painted{0};
  QTimer::singleShot(40, [&painted] { painted.release(); });
  bool met = false;
  QtLongWork().Run([&] { met = painted.try_acquire_for(std::chrono::seconds{20}); });
  EXPECT_TRUE(met);
}

TEST(QtLongWork, HandsFailuresOn) {
  EXPECT_THROW(QtLongWork().Run([] { throw std::runtime_error("x"); }), std::runtime_error);
}

}  // namespace
}  // namespace orvane
