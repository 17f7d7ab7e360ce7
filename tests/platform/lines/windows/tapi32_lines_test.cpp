#include "platform/lines/windows/tapi32_lines.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"
#include "platform/lines/windows/scripted_tapi_lab.h"

namespace orvane {
namespace {

constexpr auto kFailure = static_cast<LONG>(LINEERR_OPERATIONFAILED);
constexpr auto kForeign = static_cast<LONG>(LINEERR_ALLOCATED);
constexpr auto kUnavailable = static_cast<LONG>(LINEERR_OPERATIONUNAVAIL);

using Log = std::vector<std::string>;
const Log kEnd{"16384", "disconnected", "1"};

Log operator+(Log first, const Log& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

class Tapi32LinesTest : public testing::Test {
 protected:
  Tapi32LinesTest() {
    lines.SetEvents(&events);
    lines.Initialise();
    lines.OpenLine(0);
  }

  bool WaitFor(const std::string& event) {
    return lab.RunUntil(
        [&] { return std::find(events.log.begin(), events.log.end(), event) != events.log.end(); });
  }
  void Connect() {
    lines.MakeCall(0, lab.answered);
    ASSERT_TRUE(WaitFor("connected"));
    events.log.clear();
  }
  // All events until nothing more happens.
  Log Settled() {
    lab.Settle();
    return std::exchange(events.log, {});
  }
  template <typename Request>
  static LONG FailureOf(const Request& request) {
    try {
      request();
    } catch (const TapiError& error) {
      return error.Number();
    }
    return 0;
  }

  ScriptedTapiLab lab;
  ScriptedTapi& tapi = lab.Tapi();
  LineServiceProvider& lines = lab.Provider();
  RecordingLineEvents events;
};

TEST(Tapi32WithoutLines, IsNoFailure) {
  QtEventLoop loop;
  CallHandles handles;
  // The system's own is there under Wine, but plays dead.
  for (const wchar_t* library :
       {L"C:\\keine\\tapi32.dll", L"keine.dll", L"kernel32.dll", L"tapi32.dll"}) {
    Tapi32Lines lines(loop, handles, library);
    lines.Initialise();
    EXPECT_EQ(lines.LineCount(), 0);
    EXPECT_THROW(lines.OpenLine(0), TapiError);
    lines.ShutDown();
  }
  ScriptedTapiLab lab;
  lab.Tapi().results.initialise = kFailure;
  lab.Provider().Initialise();
  EXPECT_EQ(lab.Provider().LineCount(), 0);
  // It has started meanwhile.
  lab.Tapi().results.initialise = 0;
  lab.Provider().Initialise();
  EXPECT_EQ(lab.Provider().LineCount(), 2);
}

TEST_F(Tapi32LinesTest, DevicesThatSpeakAKnownVersionTellAllAboutThemselves) {
  ASSERT_EQ(lines.LineCount(), 2);
  EXPECT_EQ(lines.LineName(0), "Telefonanlage Büro");
  EXPECT_EQ(lines.LineName(1), "Karte 2");
  const LineInfo exchange = lines.Info(0);
  EXPECT_EQ((std::vector{exchange.bearerModes, exchange.busyModes, exchange.callFeatures,
                         exchange.callInfoStates, exchange.callStates, exchange.dialToneModes,
                         exchange.disconnectModes, exchange.mediaModes, exchange.parkModes,
                         exchange.addressModes, exchange.version}),
            (std::vector<std::uint32_t>{0x3, 0x8, 0x80, 0x10000, 0x101, 0x10, 0x20, 0x4, 0x2, 0x1,
                                        0x20001}));
  EXPECT_EQ(exchange.addresses, (Log{"Nebenstelle 0", "Nebenstelle 1"}));
  EXPECT_EQ(exchange.switchInfo, "Schalter");
  EXPECT_EQ(exchange.providerInfo, std::string(3000, 'x') + " Ende");
  const LineInfo card = lines.Info(1);
  EXPECT_EQ(card.version, 0x10004U);
  EXPECT_EQ(card.addresses, Log{""});
}

TEST_F(Tapi32LinesTest, DialogsBelongToTheDeviceOrAreRefused) {
  lines.ShowDialog(0, LineDialog::kDevice, 77);
  lines.ShowDialog(1, LineDialog::kDialling, 78);
  EXPECT_EQ(tapi.dialogs, (Log{"device 0 before 77", "dialling 2 before 78"}));
  EXPECT_EQ(FailureOf([&] { lines.ShowDialog(1, LineDialog::kDevice, 0); }), kUnavailable);
}

TEST_F(Tapi32LinesTest, EachStepOfACallIsReportedOnceWhateverTheDriversManner) {
  const std::pair<std::string, Log> kCourses[] = {
      {lab.farEndHangsUp, {"16", "32", "256", "connected"}},
      {lab.busy, {"16", "64", "busy"}},
      {lab.rejected, {"16", "32"}},
      {lab.unknown, {"16"}}};
  for (const ScriptedTapi::Manner manner :
       {ScriptedTapi::Manner{}, {false, false, true}, {true, true, true}}) {
    tapi.manner = manner;
    for (const auto& [number, course] : kCourses) {
      SCOPED_TRACE(number + (manner.abruptEnds ? " abrupt" : ""));
      lines.MakeCall(0, number);
      // Only a call that was disconnected has a reason.
      const bool refused = !manner.abruptEnds && (number == lab.rejected || number == lab.unknown);
      EXPECT_EQ(Settled(), course + (refused ? Log{"REFUSED TapiMakeCall"} : Log{}) + kEnd);
    }
  }
}

TEST_F(Tapi32LinesTest, WhatTapiRefusesAtOnceIsThrownAndLeavesTheLineUsable) {
  tapi.results.open = kForeign;
  EXPECT_EQ(FailureOf([&] { lines.OpenLine(1); }), kForeign);
  EXPECT_EQ(FailureOf([&] { lines.MakeCall(1, lab.answered); }), kLineErrorInvalidLine);
  tapi.results.makeCall = kFailure;
  EXPECT_EQ(FailureOf([&] { lines.MakeCall(0, lab.answered); }), kFailure);
  EXPECT_EQ(FailureOf([&] { lines.DropCall(0, 0); }), kLineErrorInvalidCall);
  tapi.results = {};
  Connect();
  tapi.results.drop = kFailure;
  EXPECT_EQ(FailureOf([&] { lines.DropCall(0, events.handle); }), kFailure);
  tapi.results = {};
  lines.DropCall(0, events.handle);
  EXPECT_EQ(Settled(), kEnd);
}

TEST_F(Tapi32LinesTest, WhatTapiRefusesLaterIsALineMessage) {
  tapi.results.dialReply = kFailure;
  lines.MakeCall(0, lab.answered);
  EXPECT_EQ(Settled(), Log{"FAILED TapiMakeCall"} + kEnd);
  tapi.results = {};
  Connect();
  tapi.results.dropReply = kFailure;
  lines.DropCall(0, events.handle);
  EXPECT_EQ(Settled(), Log{"FAILED TapiLineDrop"});
  tapi.results = {};
  lines.DropCall(0, events.handle);
  EXPECT_EQ(Settled(), kEnd);
}

TEST_F(Tapi32LinesTest, ALostLineEndsItsCallAndCanBeOpenedAgain) {
  Connect();
  tapi.CloseLine(ScriptedTapi::kExchange);
  EXPECT_EQ(Settled(), kEnd + Log{"SUCCESS TapiLineClose"});
  EXPECT_EQ(FailureOf([&] { lines.MakeCall(0, lab.answered); }), kLineErrorInvalidLine);
  lines.OpenLine(0);
  Connect();
}

TEST_F(Tapi32LinesTest, DevicesComeAndGo) {
  Connect();
  tapi.RemoveDevice(ScriptedTapi::kExchange);
  EXPECT_EQ(Settled(), kEnd + Log{"SUCCESS TapiLineClose"});
  EXPECT_THROW(lines.OpenLine(0), TapiError);
  EXPECT_EQ(lines.LineName(0), "");
  EXPECT_EQ(lines.LineName(1), "Karte 2");
  const DWORD device = tapi.AddDevice();
  EXPECT_EQ(Settled(), Log{"INSERVICE TapiLineDevState"});
  ASSERT_EQ(lines.LineCount(), 3);
  EXPECT_EQ(lines.LineName(2), "Karte " + std::to_string(device));
  lines.OpenLine(2);
}

TEST_F(Tapi32LinesTest, ADeviceThatIsBackIsTheSameLine) {
  DWORD device = ScriptedTapi::kExchange;
  for (int time = 0; time < 2; ++time) {
    tapi.RemoveDevice(device);
    lab.Settle();
    EXPECT_THROW(lines.OpenLine(0), TapiError);
    device = tapi.ReturnDevice(device);
    EXPECT_EQ(Settled().back(), "INSERVICE TapiLineDevState");
    ASSERT_EQ(lines.LineCount(), 2);
    EXPECT_EQ(lines.LineName(0), "Telefonanlage Büro");
    lines.OpenLine(0);
    Connect();
  }
}

TEST_F(Tapi32LinesTest, ADeviceMayComeUpWhileALineIsOpened) {
  tapi.manner.growsWhileOpening = true;
  lines.OpenLine(1);
  tapi.manner.insatiable = true;
  tapi.AddDevice();
  lab.Settle();
  ASSERT_EQ(lines.LineCount(), 4);
  EXPECT_EQ(lines.LineName(3), "TAPI-Gerät 4");
  lines.MakeCall(1, lab.answered);
  EXPECT_TRUE(WaitFor("connected"));
}

TEST_F(Tapi32LinesTest, RegistersAnewWhenThereIsNoCall) {
  Connect();
  tapi.RemoveDevice(ScriptedTapi::kOldCard);
  tapi.AskForRenewal();
  lab.Settle();
  EXPECT_THROW(lines.OpenLine(1), TapiError);
  lines.DropCall(0, events.handle);
  EXPECT_EQ(Settled(), kEnd + Log{"INSERVICE TapiLineDevState"});
  EXPECT_EQ(lines.LineCount(), 2);
  Connect();
  lines.CloseLine(0);
  lab.Settle();

  // Not taken yet, because other programs still use it: the line is lost until it is.
  lines.OpenLine(0);
  tapi.results.initialise = static_cast<LONG>(LINEERR_REINIT);
  events.log.clear();
  tapi.AskForRenewal();
  EXPECT_EQ(Settled(), (Log{"SUCCESS TapiLineClose", "INSERVICE TapiLineDevState"}));
  EXPECT_THROW(lines.OpenLine(0), TapiError);
  EXPECT_EQ(lines.LineName(0), "Telefonanlage Büro");
  tapi.results.initialise = 0;
  lines.OpenLine(0);
  Connect();
}

TEST_F(Tapi32LinesTest, SomebodyElsesCallIsFollowedFromWhenItIsConnected) {
  tapi.ForeignCall(0, {LINECALLSTATE_OFFERING, LINECALLSTATE_DISCONNECTED, LINECALLSTATE_IDLE});
  EXPECT_EQ(Settled(), Log());
  tapi.ForeignCall(0, {LINECALLSTATE_OFFERING, LINECALLSTATE_CONNECTED, LINECALLSTATE_ONHOLD,
                       LINECALLSTATE_CONNECTED});
  EXPECT_EQ(Settled(), (Log{"256", "connected", "1024", "256"}));
  EXPECT_EQ(FailureOf([&] { lines.DropCall(0, 0); }), kLineErrorInvalidCall);
  lines.DropCall(0, events.handle);
  EXPECT_EQ(Settled(), kEnd);
}

TEST_F(Tapi32LinesTest, ALineThatIsClosedBeforeItsCallIsConfirmedEndsItOnce) {
  lines.MakeCall(0, lab.answered);
  lines.CloseLine(0);
  EXPECT_EQ(Settled(), kEnd);
  lines.OpenLine(0);
  Connect();
}

}  // namespace
}  // namespace orvane
