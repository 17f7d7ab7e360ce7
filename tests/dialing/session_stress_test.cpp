// A long day: calls by line and modem, at the telephone itself and from the options dialog, with
// refusals, message boxes, host commands and a clock that moves.
#include <random>

#include "dialing/dial_command.h"
#include "dialing/line_events.h"
#include "dialing/trial_dialer.h"
#include "fakes/program_fixture.h"
#include "fakes/raw_sqlite.h"
#include "fakes/recording_test_dial.h"
#include "journal/duration_text.h"
#include "platform/lines/simulated_lines.h"
#include "platform/lines/tapi_lines.h"
#include "platform/text/text_tools.h"
#include "remote/command_channel.h"
#include "remote/copy_data_text.h"

namespace orvane {
namespace {

constexpr int kCalls = 1000;

// The clock on the wall: seconds since the first morning, shown with daylight saving or without.
class MovingClock : public Clock {
 public:
  Moment Now() const override {
    const double universal = kFirstMorning + static_cast<double>(seconds) / 86400;
    const auto shown = std::chrono::sys_days(std::chrono::year(2024) / 1 / 1) +
                       std::chrono::hours(9) + std::chrono::seconds(seconds + summer * 3600);
    const auto day = std::chrono::floor<std::chrono::days>(shown);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss time(shown - day);
    return {
        {int(date.year()), int(unsigned(date.month())), int(unsigned(date.day())),
         int(time.hours().count()), int(time.minutes().count()), int(time.seconds().count()), 0},
        universal};
  }
  std::int64_t seconds = 0;
  int summer = 0;

 private:
  static constexpr double kFirstMorning = 45292.375;
};

// Lines that refuse now and then, at once or later, and at whose telephone somebody takes calls.
// Writes down when each call was connected and ended.
class MoodyLines : public TapiControl, public TapiEvents {
 public:
  enum class Mood { kGood, kRefuses, kFailsLater };
  struct Course {
    std::optional<Moment> connected, ended;
  };

  MoodyLines(TapiControl& lines, EventLoop& loop, const Clock& clock)
      : lines_(lines), loop_(loop), clock_(clock) {
    lines_.SetEvents(this);
  }
  ~MoodyLines() override { lines_.SetEvents(nullptr); }
  MoodyLines(const MoodyLines&) = delete;
  MoodyLines& operator=(const MoodyLines&) = delete;

  void Initialise() override { lines_.Initialise(); }
  int LineCount() override { return lines_.LineCount(); }
  std::string LineName(int line) override { return lines_.LineName(line); }
  LineInfo Info(int line) override { return lines_.Info(line); }
  void ShowDialog(int /*line*/, LineDialog /*dialog*/, std::uintptr_t /*owner*/) override {}
  std::int32_t OpenLine(std::int32_t line, std::int32_t privileges, std::int32_t mediaModes,
                        std::int16_t options) override {
    return lines_.OpenLine(line, privileges, mediaModes, options);
  }
  void CloseLine(std::int32_t line) override { lines_.CloseLine(line); }
  void ShutDown() override { lines_.ShutDown(); }
  TapiTag Tag() const override { return lines_.Tag(); }
  void SetEvents(TapiEvents* events) override { events_ = events; }

  std::int32_t MakeCall(std::int32_t line, const std::string& number,
                        std::int16_t options) override {
    const Mood now = std::exchange(mood, Mood::kGood);
    if (now == Mood::kRefuses) throw TapiError(kLineErrorOperationFailed, "abgelehnt");
    const std::int32_t call = lines_.MakeCall(line, number, options);
    if (now == Mood::kFailsLater) {
      lines_.DropCall(line, call);
      loop_.Post([this] { events_->OnLineMessage("FAILED", "TapiMakeCall", -5); });
    }
    return call;
  }
  void DropCall(std::int32_t line, std::int32_t call) override {
    const Mood now = std::exchange(mood, Mood::kGood);
    if (now == Mood::kRefuses) throw TapiError(kLineErrorOperationFailed, "abgelehnt");
    if (now == Mood::kFailsLater) {
      loop_.Post([this] { events_->OnLineMessage("FAILED", "TapiLineDrop", -5); });
    } else if (call != 0 && call == atTelephone) {
      loop_.Post([this] { EndAtTelephone(); });
    } else {
      lines_.DropCall(line, call);
    }
  }

  void TakeAtTelephone(std::int32_t call) {
    atTelephone = call;
    OnCallState(call, call, kLineCallConnected);
    OnConnected(call);
  }
  void EndAtTelephone() {
    const std::int32_t call = std::exchange(atTelephone, 0);
    if (call == 0) return;
    OnCallState(call, call, kLineCallDisconnected);
    OnDisconnected(call);
    OnCallState(call, call, kLineCallIdle);
  }

  void OnBusy(std::int32_t call) override { events_->OnBusy(call); }
  void OnConnected(std::int32_t call) override {
    last = {clock_.Now(), std::nullopt};
    events_->OnConnected(call);
  }
  void OnDisconnected(std::int32_t call) override {
    last.ended = clock_.Now();
    events_->OnDisconnected(call);
  }
  void OnLineMessage(const std::string& result, const std::string& function,
                     std::int32_t code) override {
    events_->OnLineMessage(result, function, code);
  }
  void OnCallState(std::int32_t call, std::int32_t id, std::int32_t state) override {
    events_->OnCallState(call, id, state);
  }

  Mood mood = Mood::kGood;
  std::int32_t atTelephone = 0;
  Course last;

 private:
  TapiControl& lines_;
  EventLoop& loop_;
  const Clock& clock_;
  TapiEvents* events_ = nullptr;
};

class SessionStressTest : public JournalFixture {
 protected:
  SessionStressTest() {
    // No such provider here: each lookup ends in a message box.
    state.host.useSqlServer = true;
    prompts.whileShown = [this] {
      Pass(2500);
      if (Below(4) == 0) SomethingHappens();
    };
    state.settings.comPortNumber = 3;
    lines.Initialise();
    state.settings.tapiLineId = lines.OpenLine(1, 4, 6, 9);
  }

  static std::vector<std::unique_ptr<LineServiceProvider>> Providers(HandLoop& loop,
                                                                     CallHandles& handles) {
    std::vector<std::unique_ptr<LineServiceProvider>> providers;
    providers.push_back(std::make_unique<SimulatedLines>(loop, handles, SimulatedLines::Times{}));
    return providers;
  }
  int Below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }
  void Pass(int milliseconds) {
    wall.seconds += Below(4);
    loop.Advance(std::chrono::milliseconds(Below(milliseconds)));
  }
  void Click() {
    if (!panel.dialEnabled) return;
    if (!session.On()) clicked = wall.Now();
    queue.Submit([this, at = wall.Now()] { dial.Click(at); });
  }
  void HostDials(const std::string& text) {
    queue.Submit([this, text] { commands.OnCopyData(MakeCopyData("TX:17~Dial~1|" + text)); });
  }
  void SomethingHappens() {
    switch (Below(12)) {
      case 0:
        return Click();
      case 1:
        lines.mood = static_cast<MoodyLines::Mood>(Below(3));
        return;
      case 2:
        return HostDials("040 1|Fremd");
      case 3:
        wall.summer = Below(2);
        return;
      case 4:
        if (Below(20) == 0) wall.seconds += 86400;
        return;
      case 5:
        return serial.Feed("OK");
      case 6:
        if (Below(10) == 0) serial.Unplug();
        return;
      default:
        return Pass(700);
    }
  }
  void ExpectStateTable() {
    const CurrentCall& call = session.Call();
    EXPECT_EQ(panel.sessionOn, session.On());
    if (!session.On()) {
      EXPECT_TRUE(panel.dialEnabled);
      EXPECT_EQ(session.CallHandle(), 0);
      EXPECT_EQ(call.startText + call.connectText, "");
    }
    EXPECT_TRUE(call.connectText.empty() || session.CallHandle() != 0);
    const bool foreign = session.On() && !session.PlacedHere();
    EXPECT_EQ(panel.contactLabel, foreign ? "" : call.contactText);
    if (foreign) {
      EXPECT_EQ(call.startText, "");
    }
  }
  void UntilItIsOver() {
    for (int step = 0; session.On(); ++step) {
      ASSERT_LT(step, 3000);
      SomethingHappens();
      ExpectStateTable();
    }
  }
  std::string Row(const std::string& number) {
    return RawSqlite(UserFile("TelList.fdb"))
        .Run("SELECT printf('%.5f|%s', Zeit, coalesce(Dauer, '')) FROM o WHERE Nr='" + number +
             "'");
  }
  static std::string Expected(const Moment& time, const std::string& duration) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.5f|", ToDateTime(time.local));
    return text.data() + Trim(duration) + " ";
  }

  void PlaceAndEndOneCall(int n) {
    static constexpr const char* kEndings[] = {"99901", "99902", "99903", "99904",
                                               "99905", "99906", "1234",  "5678"};
    const bool byModem = Below(4) == 0;
    state.settings.dialMethod = byModem ? kDialMethodModem : kDialMethodTapi;
    panel.devDialTicked = false;
    const std::string number = "030" + std::to_string(10000 + n) + kEndings[Below(8)];
    if (Below(3) == 0) HostDials(number + "|Muster GmbH");
    panel.numberText = number;
    lines.last = {};
    Click();
    const Moment begun = clicked;
    ExpectStateTable();
    UntilItIsOver();
    // The row of a modem call has its start, and so has that of a call that was never connected.
    const bool completed = !byModem && lines.last.connected && lines.last.ended;
    const std::string row = Row(number);
    // A modem that is not there leaves no row.
    if (byModem && row.empty()) return;
    EXPECT_EQ(row, completed ? Expected(*lines.last.connected,
                                        FormatDuration(lines.last.connected->universal,
                                                       lines.last.ended->universal))
                             : Expected(begun, ""))
        << number;
  }
  void OneCallAtTheTelephone() {
    const std::string rows =
        RawSqlite(UserFile("TelList.fdb")).Run("SELECT group_concat(Zeit) FROM o");
    lines.mood = MoodyLines::Mood::kGood;
    lines.TakeAtTelephone(handles.Next());
    EXPECT_TRUE(session.On() && !session.PlacedHere());
    ExpectStateTable();
    if (Below(2) == 0) Click();
    Pass(100);
    lines.EndAtTelephone();
    EXPECT_FALSE(session.On());
    ExpectStateTable();
    EXPECT_EQ(RawSqlite(UserFile("TelList.fdb")).Run("SELECT group_concat(Zeit) FROM o"), rows);
  }
  void TheOptions() {
    RecordingTestDial dialog;
    TrialDialer trial{lines, {serial, loop, wall, prompts, queue}, locale, state.settings, dialog};
    panel.windowEnabled = false;
    events.SetTestDial(&trial);
    for (int step = Below(12); step > 0; --step) {
      if (Below(3) == 0) trial.Click(static_cast<Session::Way>(Below(2)), "0217");
      SomethingHappensBeside();
      EXPECT_EQ(dialog.pressed, trial.On());
      EXPECT_TRUE(dialog.enabled);
      EXPECT_FALSE(session.On());
    }
    trial.LineGone();
    lines.CloseLine(state.settings.tapiLineId);
    trial.Abandon();
    events.SetTestDial(nullptr);
    serial.SetPortOpen(false);
    loop.Advance(std::chrono::seconds(5));
    state.settings.tapiLineId = lines.OpenLine(1, 4, 6, 9);
    panel.windowEnabled = true;
  }
  void SomethingHappensBeside() {
    lines.mood = static_cast<MoodyLines::Mood>(Below(3));
    Pass(2000);
    serial.Feed("OK");
  }

  MovingClock wall;
  std::minstd_rand random{20261124};
  Moment clicked;
  CallHandles handles;
  TapiLines plain{Providers(loop, handles)};
  MoodyLines lines{plain, loop, wall};
  ModemDialer modem{{serial, loop, wall, prompts, queue}, state.settings, session, panel};
  TapiDialer dialer{lines, locale, prompts, state.settings, session, panel};
  LineEvents events{lines, wall, prompts, queue, panel, dialer};
  RedialMemory redial{newRegistry, background};
  DialCommand dial{prompts, supportLog, state, session, panel, redial, modem, dialer};
  CommandChannel commands{channel, loop, prompts, supportLog, state, session, queue, panel};
};

TEST_F(SessionStressTest, EveryCallEndsIdleWithItsOwnRow) {
  for (int n = 1; n <= kCalls && !HasFailure(); ++n) {
    SCOPED_TRACE(n);
    wall.seconds = n * std::int64_t{86400};
    PlaceAndEndOneCall(n);
    if (Below(4) == 0) OneCallAtTheTelephone();
    if (Below(10) == 0) TheOptions();
    loop.Advance(std::chrono::seconds(40));
    EXPECT_FALSE(session.On());
    ExpectStateTable();
    EXPECT_EQ(loop.PendingTimers(), 0);
    if (plain.NeedsInitialise() || Below(50) == 0) {
      lines.ShutDown();
      lines.Initialise();
      state.settings.tapiLineId = lines.OpenLine(1, 4, 6, 9);
    }
  }
  EXPECT_GT(prompts.boxes.size(), 100U);
}

}  // namespace
}  // namespace orvane
