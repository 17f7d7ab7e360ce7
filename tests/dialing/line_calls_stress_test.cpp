// Many calls over simulated lines with the user, foreign calls and message boxes in between.
#include <random>

#include "dialing/tapi_dialer.h"
#include "fakes/program_fixture.h"
#include "fakes/raw_sqlite.h"
#include "platform/lines/simulated_lines.h"
#include "platform/lines/tapi_lines.h"

namespace orvane {
namespace {

constexpr int kCalls = 1000;
constexpr std::int32_t kForeignHandle = 99999;

class LineCallsStressTest : public JournalFixture {
 protected:
  LineCallsStressTest() {
    // No such provider here: each lookup ends in a message box.
    state.host.useSqlServer = true;
    prompts.whileShown = [this] { loop.Advance(Random(2500)); };
    OpenLine();
  }

  static std::vector<std::unique_ptr<LineServiceProvider>> Providers(HandLoop& loop,
                                                                     CallHandles& handles) {
    std::vector<std::unique_ptr<LineServiceProvider>> providers;
    providers.push_back(std::make_unique<SimulatedLines>(loop, handles, SimulatedLines::Times{}));
    return providers;
  }

  void OpenLine() {
    lines.Initialise();
    state.settings.tapiLineId = 1;
    lines.OpenLine(state.settings.tapiLineId, 4, 6, 9);
  }
  int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
  std::chrono::milliseconds Random(int limit) { return std::chrono::milliseconds(Below(limit)); }

  void Click() {
    queue.Submit([this] { dialer.DialTAPI(number); });
  }
  void SomethingHappens() {
    const int what = Below(8);
    if (what == 0 && panel.dialEnabled) Click();
    if (what == 1) ForeignEvent();
    if (what > 1) loop.Advance(Random(700));
  }
  // While a call has its handle, other calls of the line must not touch it.
  void ForeignEvent() {
    if (call.tapiCallHandle == 0) return;
    const auto sessionState = [this] {
      return std::tuple(panel.sessionOn, call.tapiCallHandle, call.connectText);
    };
    const auto before = sessionState();
    dialer.OnCallState(kForeignHandle, 1, Below(2) == 0 ? kLineCallConnected : kLineCallIdle);
    dialer.OnConnected(kForeignHandle);
    dialer.OnDisconnected(kForeignHandle);
    EXPECT_EQ(before, sessionState());
  }
  void ExpectStateTable() {
    EXPECT_TRUE(panel.sessionOn || (call.tapiCallHandle == 0 && call.connectText.empty()));
    EXPECT_TRUE(call.connectText.empty() || call.tapiCallHandle != 0);
  }
  void PlaceAndEndOneCall(int n) {
    static constexpr const char* kEndings[] = {"99901", "99902", "99903", "99904",
                                               "99905", "99906", "1234",  "5678"};
    clock.now = {2024, 4, 3, n / 3600, n / 60 % 60, n % 60, 0};
    number = std::string("030") + kEndings[Below(8)];
    call.company = Below(4) == 0 ? "" : "Muster GmbH";
    Click();
    for (int step = 0; step < 400 && panel.sessionOn; ++step) {
      SomethingHappens();
      ExpectStateTable();
    }
  }
  std::int64_t LargestId() {
    return std::stoll(RawSqlite(UserFile("TelList.fdb")).Run("SELECT Max(ID) FROM o"));
  }

  std::minstd_rand random{20261122};
  std::string number;
  CallHandles handles;
  TapiLines lines{Providers(loop, handles)};
  CallLogger logger = NewLogger(clock);
  TapiDialer dialer{lines, clock, locale, prompts, state.settings, call, queue, logger, panel};
};

TEST_F(LineCallsStressTest, EveryCallEndsIdleWithOneRow) {
  for (int n = 1; n <= kCalls && !HasFailure(); ++n) {
    SCOPED_TRACE(n);
    PlaceAndEndOneCall(n);
    ASSERT_FALSE(panel.sessionOn);
    EXPECT_TRUE(panel.dialEnabled);
    EXPECT_EQ(LargestId(), n);
    loop.Advance(std::chrono::seconds(20));
    EXPECT_EQ(loop.PendingTimers(), 0);
    if (lines.NeedsInitialise() || Below(50) == 0) {
      lines.ShutDown();
      OpenLine();
    }
  }
  EXPECT_GT(prompts.boxes.size(), 100U);
}

}  // namespace
}  // namespace orvane
