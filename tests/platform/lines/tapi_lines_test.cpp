#include "platform/lines/tapi_lines.h"

#include <gtest/gtest.h>

#include "fakes/hand_loop.h"
#include "fakes/recording_line_events.h"
#include "platform/lines/simulated_lines.h"

namespace orvane {
namespace {

// A line that is lost reports so by itself, some time after it was opened.
TEST(TapiLinesTest, TheTagFollowsTheControlAndWhatItsLinesReport) {
  HandLoop loop;
  CallHandles handles;
  std::vector<std::unique_ptr<LineServiceProvider>> providers;
  providers.push_back(std::make_unique<SimulatedLines>(loop, handles, SimulatedLines::Times{}));
  TapiLines lines(std::move(providers));
  EXPECT_EQ(lines.Tag(), TapiTag::kNone);
  for (const bool heard : {true, false}) {
    RecordingLineEvents events;
    lines.SetEvents(heard ? &events : nullptr);
    lines.Initialise();
    EXPECT_EQ(lines.Tag(), TapiTag::kClosed);
    EXPECT_EQ(lines.OpenLine(1, kOpenPrivileges, kOpenMediaModes, kOpenOptions), 1);
    EXPECT_EQ(lines.Tag(), TapiTag::kOpened);
    lines.MakeCall(1, "03099904", kCallOptions);
    EXPECT_EQ(lines.Tag(), TapiTag::kOpened);
    loop.Advance(std::chrono::seconds(20));
    EXPECT_EQ(lines.Tag(), TapiTag::kClosed);
    EXPECT_EQ(events.log.empty(), !heard);
    lines.ShutDown();
    EXPECT_EQ(lines.Tag(), TapiTag::kNone);
    lines.SetEvents(nullptr);
  }
}

}  // namespace
}  // namespace orvane
