#include "platform/desktop/linux/end_signals.h"

#include <gtest/gtest.h>

#include <csignal>

#include "contract/event_wait.h"

namespace orvane {
namespace {

TEST(EndSignals, TellOfEachSignalButThoseThatAreSwitchedOff) {
  std::signal(SIGHUP, SIG_IGN);
  int told = 0;
  {
    EndSignals heard;
    heard.SetHandler([&told](EndRequests::When when) {
      EXPECT_EQ(when, EndRequests::When::kSoon);
      ++told;
    });
    for (const auto& [signal, count] : {std::pair{SIGTERM, 1}, {SIGINT, 2}}) {
      std::raise(signal);
      EXPECT_TRUE(RunUntil([&told, expected = count] { return told == expected; }));
    }
    std::raise(SIGHUP);
  }
  EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
  EXPECT_EQ(std::signal(SIGTERM, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace orvane
