#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <functional>
#include <memory>
#include <string>

#include "contract/event_wait.h"
#include "fakes/hand_loop.h"
#include "platform/common/qt_event_loop.h"

namespace orvane {
namespace {

using std::chrono::milliseconds;

// An implementation, and how a test lets its time pass.
struct LoopUnderTest {
  std::unique_ptr<EventLoop> loop;
  std::function<void(milliseconds)> pass;
};

LoopUnderTest MakeQtLoop() {
  return {std::make_unique<QtEventLoop>(), [](milliseconds time) {
            QElapsedTimer elapsed;
            elapsed.start();
            RunUntil([&] { return elapsed.elapsed() >= time.count(); });
            QCoreApplication::processEvents();
          }};
}

LoopUnderTest MakeHandLoop() {
  auto loop = std::make_unique<HandLoop>();
  HandLoop& hand = *loop;
  return {std::move(loop), [&hand](milliseconds time) { hand.Advance(time); }};
}

using Factory = LoopUnderTest (*)();

class EventLoopContract : public testing::TestWithParam<Factory> {
 protected:
  LoopUnderTest under_ = GetParam()();
  EventLoop& loop_ = *under_.loop;
  std::string log_;
};

TEST_P(EventLoopContract, PostedTasksRunLaterAndInOrder) {
  loop_.Post([&] { log_ += "a"; });
  loop_.Post([&] { log_ += "b"; });
  EXPECT_EQ(log_, "");
  loop_.RunPendingOnce();
  EXPECT_EQ(log_, "ab");
}

TEST_P(EventLoopContract, ATurnDoesNotRunWhatItPosts) {
  std::function<void()> again = [&] {
    log_ += "x";
    loop_.Post(again);
  };
  loop_.Post(again);
  loop_.RunPendingOnce();
  EXPECT_EQ(log_, "x");
  loop_.RunPendingOnce();
  EXPECT_EQ(log_, "xx");
}

TEST_P(EventLoopContract, ANestedTurnGoesOnWithTheRest) {
  loop_.Post([&] {
    log_ += "(";
    loop_.RunPendingOnce();
    log_ += ")";
  });
  loop_.Post([&] { log_ += "inner"; });
  loop_.RunPendingOnce();
  EXPECT_EQ(log_, "(inner)");
}

TEST_P(EventLoopContract, TimersRunOnceInTheOrderOfTheirTimes) {
  const auto late = loop_.After(milliseconds(40), [&] { log_ += "late"; });
  const auto early = loop_.After(milliseconds(20), [&] { log_ += "early "; });
  loop_.RunPendingOnce();
  EXPECT_EQ(log_, "");
  under_.pass(milliseconds(100));
  under_.pass(milliseconds(60));
  EXPECT_EQ(log_, "early late");
}

TEST_P(EventLoopContract, DestroyingATimerCancelsIt) {
  auto timer = loop_.After(milliseconds(5), [&] { log_ += "x"; });
  timer.reset();
  under_.pass(milliseconds(30));
  EXPECT_EQ(log_, "");
}

TEST_P(EventLoopContract, ATaskMayReplaceItsOwnTimer) {
  std::unique_ptr<EventLoop::Timer> timer;
  const auto text = std::make_shared<std::string>("alive");
  timer = loop_.After(milliseconds(5), [&, text] {
    timer = loop_.After(milliseconds(5), [&] { log_ += " again"; });
    log_ += *text;
  });
  under_.pass(milliseconds(60));
  EXPECT_EQ(log_, "alive again");
}

INSTANTIATE_TEST_SUITE_P(Qt, EventLoopContract, testing::Values(&MakeQtLoop));
INSTANTIATE_TEST_SUITE_P(Hand, EventLoopContract, testing::Values(&MakeHandLoop));

TEST(QtEventLoop, QuitBeforeRunEndsRunAtOnce) {
  QtEventLoop loop;
  loop.Quit();
  EXPECT_EQ(loop.Run(), 0);
}

TEST(QtEventLoop, QuitEndsTheRunningLoop) {
  QtEventLoop loop;
  loop.Post([&] { loop.Quit(); });
  EXPECT_EQ(loop.Run(), 0);
}

}  // namespace
}  // namespace orvane
