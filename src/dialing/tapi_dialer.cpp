#include "dialing/tapi_dialer.h"

#include <optional>

#include "app/attempt.h"
#include "app/date_time.h"
#include "app/error_report.h"
#include "app/line_opening.h"
#include "platform/tapi_control.h"

namespace orvane {

TapiDialer::TapiDialer(TapiControl& tapi, const Clock& clock, const LocaleFormat& locale,
                       Prompts& prompts, DialSettings& settings, CurrentCall& call,
                       WorkQueue& queue, CallLogger& logger, LinePanel& panel)
    : tapi_(tapi),
      clock_(clock),
      locale_(locale),
      prompts_(prompts),
      settings_(settings),
      call_(call),
      queue_(queue),
      logger_(logger),
      panel_(panel) {
  tapi_.SetEvents(this);
}

TapiDialer::~TapiDialer() {
  Abandon();
}

void TapiDialer::Abandon() {
  tapi_.SetEvents(nullptr);
}

void TapiDialer::DialTAPI(const std::string& dialString) {
  panel_.SetDialButtonsEnabled(false);
  if (panel_.SessionOn()) {
    Drop();
  } else {
    Place(dialString);
  }
}

void TapiDialer::Place(const std::string& dialString) {
  panel_.SetDialButtonIdle(false);
  panel_.AddStatus(">>> Wählen: " + dialString);
  call_.connectText.clear();
  call_.ForgetLineCall();
  const auto failure = Attempt([&] {
    ReopenLine();
    call_.placedCallHandle = tapi_.MakeCall(settings_.tapiLineId, dialString, kCallOptions);
  });
  logger_.LogCall(true, false);
  if (!failure) return;
  // No event will ever end this call: the button must not stay with a session that is none.
  panel_.SetDialButtonIdle(true);
  panel_.SetDialButtonsEnabled(true);
  ShowError(prompts_, *failure, "DialTAPI");
}

// A line that was lost is opened again by the next call.
void TapiDialer::ReopenLine() {
  if (tapi_.NeedsInitialise()) settings_.tapiLineId = OpenTapiLine(tapi_, settings_.tapiLineId);
}

void TapiDialer::Drop() {
  if (panel_.JustPlaced()) panel_.AddStatus(">>> Trennen...");
  const auto failure = Attempt([&] { tapi_.DropCall(settings_.tapiLineId, call_.tapiCallHandle); });
  panel_.SetDialButtonIdle(false);
  if (!failure) return;
  panel_.SetDialButtonsEnabled(true);
  // The call has ended by itself at the same moment; its events are on their way.
  if (failure->number == kLineErrorInvalidCall) return;
  ShowError(prompts_, *failure, "DialTAPI");
}

void TapiDialer::OnBusy(std::int32_t callHandle) {
  Handle("TAPIOnBusy", [this, callHandle] { HandleBusy(callHandle); });
}

void TapiDialer::OnConnected(std::int32_t callHandle) {
  // The moment counts, not the time until a message box is closed.
  Handle("TAPIOnConnected",
         [this, callHandle, now = clock_.Now()] { HandleConnected(callHandle, now); });
}

void TapiDialer::OnDisconnected(std::int32_t callHandle) {
  Handle("TAPIOnDisconnected", [this, callHandle] { HandleDisconnected(callHandle); });
}

void TapiDialer::OnLineMessage(const std::string& result, const std::string& function,
                               std::int32_t code) {
  Handle("TAPIOnLineMessage",
         [this, result, function, code] { HandleLineMessage(result, function, code); });
}

void TapiDialer::OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) {
  Handle("TAPI_CallState",
         [this, callHandle, callId, state] { HandleCallState(callHandle, callId, state); });
}

void TapiDialer::Handle(const std::string& procedure, const WorkQueue::Task& handler) {
  queue_.Submit([this, procedure, handler] {
    if (const auto failure = Attempt(handler)) ShowError(prompts_, *failure, procedure);
  });
}

void TapiDialer::HandleBusy(std::int32_t callHandle) {
  if (!panel_.WindowEnabled()) return;
  if (IsOther(callHandle)) return;
  logger_.LogCall(false, true);
  panel_.AddStatus("Die Leitung ist besetzt.");
}

void TapiDialer::HandleConnected(std::int32_t callHandle, const LocalTime& now) {
  if (!panel_.WindowEnabled()) {
    if (IsTestCall(callHandle)) testDial_->SetTestDialIdle(false);
    return;
  }
  if (callHandle != call_.tapiCallHandle) return;
  panel_.SetDialButtonIdle(false);
  call_.connectDateTime = ToDateTime(now);
  call_.connectText = TimeText(now);
  panel_.ClearStatus();
  panel_.AddStatus("Verbunden um " + locale_.Time(now));
}

void TapiDialer::HandleDisconnected(std::int32_t callHandle) {
  if (!panel_.WindowEnabled()) {
    if (IsTestCall(callHandle)) testDial_->SetTestDialIdle(true);
  } else if (callHandle == call_.tapiCallHandle) {
    if (call_.startText.empty()) panel_.AddStatus("Aufgelegt.");
    EndSession();
  } else if (!IsOther(callHandle)) {
    EndPending();
  }
}

void TapiDialer::HandleLineMessage(const std::string& result, const std::string& function,
                                   std::int32_t code) {
  // The control itself follows what its lines report.
  if (result == "SUCCESS" && (function == "TapiLineInit" || function == "TapiLineClose")) return;
  if (result == "INSERVICE" && WaitsForItsLine()) panel_.LinesChanged();
  if (panel_.WindowEnabled() || testDial_ == nullptr) return;
  testDial_->AppendProgress("TapiMessage: " + result + "  " + function + "  " +
                            std::to_string(code));
}

// In the options dialog another line may stand in for the one that is missed.
bool TapiDialer::WaitsForItsLine() const {
  const bool isMissed = settings_.tapiLineId == kNoTapiLine || !panel_.WindowEnabled();
  return settings_.dialMethod == kDialMethodTapi && isMissed && !panel_.SessionOn();
}

void TapiDialer::HandleCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) {
  panel_.SetDialButtonsEnabled(true);
  const bool enabled = panel_.WindowEnabled();
  switch (state) {
    case kLineCallRingback:
      TakeHandle(callHandle);
      break;
    case kLineCallConnected:
      if (const bool taken = TakeHandle(callHandle); !enabled) {
        ReportTestState("*Verbindung hergestellt!", callHandle, callId);
      } else if (taken) {
        panel_.FocusDialButton();
      }
      break;
    case kLineCallIdle:
      if (enabled) {
        HandleIdle(callHandle);
      } else {
        HandleTestIdle(callHandle);
      }
      break;
    case kLineCallDisconnected:
      if (!enabled) ReportTestState("*Verbindung getrennt!", callHandle, callId);
      break;
    default:
      break;
  }
}

void TapiDialer::HandleIdle(std::int32_t callHandle) {
  if (!call_.startText.empty() && callHandle == call_.tapiCallHandle) {
    EndSession();
  } else if (call_.tapiCallHandle == 0 && !IsOther(callHandle)) {
    EndPending();
  }
}

void TapiDialer::HandleTestIdle(std::int32_t callHandle) {
  if (IsTestCall(callHandle)) testDial_->SetTestDialIdle(true);
  // A handle that outlived its test call would keep later calls from getting theirs.
  if (!IsOther(callHandle)) call_.ForgetLineCall();
}

void TapiDialer::EndSession() {
  call_.ForgetLineCall();
  panel_.SetDialButtonIdle(true);
  logger_.LogCall(false, false);
  // Nor may a call that was never connected lend its row to the next one.
  call_.startText.clear();
}

// A pending call has ended before it had a handle.
void TapiDialer::EndPending() {
  call_.ForgetLineCall();
  panel_.SetDialButtonIdle(true);
  call_.startText.clear();
}

// Whether there is a call, and this is another one: taken at the telephone itself, or the end of a
// call that was hung up before.
bool TapiDialer::IsOther(std::int32_t callHandle) const {
  const std::int32_t known =
      call_.tapiCallHandle != 0 ? call_.tapiCallHandle : call_.placedCallHandle;
  return known != 0 && callHandle != known;
}

bool TapiDialer::IsTestCall(std::int32_t callHandle) const {
  return testDial_ != nullptr && !testDial_->TestsByModem() && !IsOther(callHandle);
}

bool TapiDialer::TakeHandle(std::int32_t callHandle) {
  if (IsOther(callHandle)) return false;
  call_.tapiCallHandle = callHandle;
  return true;
}

void TapiDialer::ReportTestState(const std::string& text, std::int32_t callHandle,
                                 std::int32_t callId) {
  if (testDial_ == nullptr) return;
  testDial_->AppendProgress(text + " - Handle, ID: " + std::to_string(callHandle) + "  " +
                            std::to_string(callId));
  testDial_->EnableAndFocusTestDial();
}

}  // namespace orvane
