#include "app/work_queue.h"

#include <gtest/gtest.h>

namespace orvane {

TEST(WorkQueueTest, NothingOvertakesTheTaskInProgress) {
  WorkQueue queue;
  std::string order;
  queue.Submit([&] {
    order += "a(";
    queue.Submit([&] {
      order += "b";
      queue.Submit([&] { order += "d"; });
      throw std::runtime_error("ends this task only");
    });
    queue.Submit([&] { order += "c"; });
    order += ")";
  });
  EXPECT_EQ(order, "a()bcd");
  queue.Submit([&] {
    queue.Submit([&] { order += "dropped"; });
    queue.Clear();
  });
  EXPECT_EQ(order, "a()bcd");
  EXPECT_FALSE(queue.Busy());
}

TEST(WorkQueueTest, AYieldLetsWaitingAndNewTasksRunInsideIt) {
  WorkQueue queue;
  std::string order;
  queue.Submit([&] {
    queue.Submit([&] { order += "1"; });
    queue.Yield([&] {
      order += "<";
      queue.Submit([&] { order += "2"; });
      order += ">";
    });
    queue.Submit([&] { order += "3"; });
    order += "end";
  });
  EXPECT_EQ(order, "1<2>end3");
}

}  // namespace orvane
