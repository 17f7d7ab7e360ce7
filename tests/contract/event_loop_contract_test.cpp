#include <gtest/gtest.h>

#include "contract/event_wait.h"
#include "fakes/hand_loop.h"
#include "platform/desktop/qt_event_loop.h"

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

class EventLoopContract : public testing::TestWithParam<LoopUnderTest (*)()> {
 protected:
  LoopUnderTest under_ = GetParam()();
  EventLoop& loop_ = *under_.loop;
  std::string log_;
};

TEST_P(EventLoopContract, ATurnRunsWhatWasPostedBeforeInOrder) {
  loop_.Post([&] {
    log_ += "a";
    loop_.Post([&] { log_ += "c"; });
  });
  loop_.Post([&] { log_ += "b"; });
  for (const char* expected : {"", "ab", "abc"}) {
    EXPECT_EQ(log_, expected);
    loop_.RunPendingOnce();
  }
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

TEST_P(EventLoopContract, TimersRunOnceInTheOrderOfTheirTimesUnlessDestroyed) {
  const auto late = loop_.After(milliseconds(40), [&] { log_ += "late"; });
  const auto early = loop_.After(milliseconds(20), [&] { log_ += "early "; });
  loop_.After(milliseconds(5), [&] { log_ += "destroyed"; }).reset();
  loop_.RunPendingOnce();
  EXPECT_EQ(log_, "");
  under_.pass(milliseconds(100));
  under_.pass(milliseconds(60));
  EXPECT_EQ(log_, "early late");
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

TEST(QtEventLoop, QuitEndsRunBeforeAndAfterItsStart) {
  QtEventLoop loop;
  loop.Quit();
  EXPECT_EQ(loop.Run(), 0);
  loop.Post([&] { loop.Quit(); });
  EXPECT_EQ(loop.Run(), 0);
  // An application that was told to end opens no loops, those of later tests included, until it
  // runs again.
  QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  QCoreApplication::exec();
}

}  // namespace
}  // namespace orvane
