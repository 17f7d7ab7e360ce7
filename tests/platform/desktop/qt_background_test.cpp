#include "platform/desktop/qt_background.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <string>
#include <thread>

#include "contract/event_wait.h"

namespace orvane {
namespace {

constexpr std::chrono::milliseconds kLong{5000};

TEST(QtBackgroundTest, DoesWorkInOrderBesideTheWindowAndTellsTheWindow) {
  QtBackground background;
  const auto window = std::this_thread::get_id();
  std::string done, told;
  std::atomic<bool> beside = true;
  for (const char name : {'a', 'b', 'c'}) {
    background.Do([&, name] {
      beside = beside && std::this_thread::get_id() != window;
      done += name;
      background.Tell([&told, name, window] {
        EXPECT_EQ(std::this_thread::get_id(), window);
        told += name;
      });
    });
  }
  EXPECT_TRUE(background.Finish(kLong));
  EXPECT_EQ(done, "abc");
  EXPECT_TRUE(beside);
  EXPECT_TRUE(RunUntil([&told] { return told == "abc"; }));
}

// Work that hangs holds up neither the end of the program nor what it was given.
TEST(QtBackgroundTest, DoesNotWaitForeverForWorkThatHangs) {
  std::promise<void> release;
  const auto released = release.get_future().share();
  const auto finished = std::make_shared<std::promise<void>>();
  bool told = false;
  {
    QtBackground background;
    background.Do([&background, &told, released, finished] {
      background.Tell([&told] { told = true; });
      released.wait();
      finished->set_value();
    });
    background.Do([&told] { told = true; });
    EXPECT_FALSE(background.Finish(std::chrono::milliseconds(50)));
    EXPECT_TRUE(told) << "what the work tells arrives while the window waits";
    told = false;
  }
  release.set_value();
  finished->get_future().wait();
  EXPECT_FALSE(told) << "what had not begun is left undone";
}

}  // namespace
}  // namespace orvane
