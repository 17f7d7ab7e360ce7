#include "platform/support/logged_lines.h"

#include <gtest/gtest.h>

#include <chrono>

#include "fakes/hand_loop.h"
#include "fakes/recording_line_events.h"
#include "fakes/recording_log.h"
#include "platform/lines/simulated_lines.h"
#include "platform/lines/tapi_lines.h"

namespace orvane {
namespace {

std::vector<std::unique_ptr<LineServiceProvider>> Simulated(EventLoop& loop, CallHandles& handles) {
  std::vector<std::unique_ptr<LineServiceProvider>> providers;
  providers.push_back(std::make_unique<SimulatedLines>(loop, handles, SimulatedLines::Times{}));
  return providers;
}

class LoggedLinesTest : public testing::Test {
 protected:
  LoggedLinesTest() {
    lines.SetEvents(&events);
    lines.Initialise();
    Open();
  }
  void Open() { lines.OpenLine(0, kOpenPrivileges, kOpenMediaModes, kOpenOptions); }

  HandLoop loop;
  CallHandles handles;
  TapiLines plain{Simulated(loop, handles)};
  RecordingLog log;
  LoggedLines lines{plain, log};
  RecordingLineEvents events;
};

TEST_F(LoggedLinesTest, ALineThatIsLostDoesNotLookLikeOneThatWasClosed) {
  lines.MakeCall(0, "030 99904", kCallOptions);
  loop.Advance(std::chrono::seconds(30));
  EXPECT_EQ(log.lines.back(), "Ausfall: die Leitung wurde geschlossen (SUCCESS TapiLineClose 0)");
  Open();
  lines.CloseLine(0);
  EXPECT_EQ(log.lines.back(), "geschlossen (SUCCESS TapiLineClose 0)");
}

TEST_F(LoggedLinesTest, OnlyWhatFailedIsAFailure) {
  EXPECT_THROW(lines.DropCall(0, 0), TapiError);
  EXPECT_TRUE(log.lines.back().starts_with("es läuft keines mehr (")) << log.lines.back();
  const auto told = log.lines.size();
  EXPECT_THROW(lines.CloseLine(kNoTapiLine), TapiError);
  EXPECT_THROW(lines.DropCall(kNoTapiLine, 0), TapiError);
  EXPECT_EQ(log.lines.size(), told);
  lines.CloseLine(0);
  EXPECT_THROW(lines.MakeCall(0, "030 1", kCallOptions), TapiError);
  EXPECT_TRUE(log.lines.back().starts_with("Fehler -2147483605 (0x8000002B), "))
      << log.lines.back();
}

}  // namespace
}  // namespace orvane
