#include "dialing/tapi_dialer.h"

#include "app/attempt.h"
#include "app/error_report.h"
#include "app/line_opening.h"

namespace orvane {

void TapiDialer::DialTAPI(const std::string& dialString, const Moment& clicked) {
  session_.SetWaiting(true);
  if (session_.On()) {
    Drop();
  } else {
    Place(dialString, clicked);
  }
}

void TapiDialer::Place(const std::string& dialString, const Moment& clicked) {
  session_.Begin(Session::Way::kLine);
  panel_.AddStatus(">>> Wählen: " + dialString);
  const auto failure = Attempt([&] {
    ReopenLine();
    session_.Placed(tapi_.MakeCall(settings_.tapiLineId, dialString, kCallOptions));
  });
  session_.LogStart(clicked);
  if (!failure) return;
  // No event will ever end this call.
  session_.Abandon();
  ShowError(prompts_, *failure, "DialTAPI");
}

// A line that was lost is opened again by the next call.
void TapiDialer::ReopenLine() {
  if (tapi_.NeedsInitialise()) settings_.tapiLineId = OpenTapiLine(tapi_, settings_.tapiLineId);
}

void TapiDialer::Drop() {
  if (session_.JustPlaced()) {
    panel_.AddStatus(">>> Trennen...");
    session_.Heard();
  }
  const auto failure =
      Attempt([&] { tapi_.DropCall(settings_.tapiLineId, session_.CallHandle()); });
  if (!failure) return;
  session_.SetWaiting(false);
  // The call has ended by itself at the same moment; its events are on their way.
  if (failure->number == kLineErrorInvalidCall) return;
  ShowError(prompts_, *failure, "DialTAPI");
}

void TapiDialer::Busy(std::int32_t callHandle, const Moment& at) {
  // Somebody else's call is none of this program's business.
  if (!session_.PlacedHere() || session_.IsOther(callHandle)) return;
  session_.Busy(at);
  panel_.AddStatus("Die Leitung ist besetzt.");
}

void TapiDialer::Connected(std::int32_t callHandle, const Moment& at) {
  if (session_.IsOther(callHandle) || callHandle != session_.CallHandle()) return;
  session_.Connect(at);
  panel_.ClearStatus();
  panel_.AddStatus("Verbunden um " + locale_.Time(at.local));
}

void TapiDialer::Disconnected(std::int32_t callHandle, const Moment& at) {
  if (session_.IsOther(callHandle)) return;
  if (callHandle != session_.CallHandle()) {
    // A call that has ended before it had a handle.
    session_.Abandon();
    return;
  }
  if (session_.Call().startText.empty()) panel_.AddStatus("Aufgelegt.");
  session_.Finish(at);
}

void TapiDialer::LineMessage(const std::string& result, const std::string& function,
                             std::int32_t /*code*/) {
  // What was asked for is not going to happen: the user must be able to ask again.
  if (result == "FAILED" && (function == "TapiLineDrop" || function == "TapiMakeCall")) {
    session_.SetWaiting(false);
  }
  if (result == "INSERVICE" && WaitsForItsLine()) panel_.LinesChanged();
}

// In the options dialog another line may stand in for the one that is missed.
bool TapiDialer::WaitsForItsLine() const {
  const bool isMissed = settings_.tapiLineId == kNoTapiLine || !panel_.WindowEnabled();
  return settings_.dialMethod == kDialMethodTapi && isMissed && !session_.On();
}

void TapiDialer::CallState(std::int32_t callHandle, std::int32_t /*callId*/, std::int32_t state,
                           const Moment& at) {
  session_.SetWaiting(false);
  switch (state) {
    case kLineCallRingback:
      session_.Follow(callHandle);
      break;
    case kLineCallConnected:
      if (session_.Follow(callHandle)) panel_.FocusDialButton();
      break;
    case kLineCallIdle:
      Idle(callHandle, at);
      break;
    default:
      break;
  }
}

void TapiDialer::Idle(std::int32_t callHandle, const Moment& at) {
  if (session_.IsOther(callHandle)) return;
  if (session_.CallHandle() == 0) {
    session_.Abandon();
  } else if (!session_.Call().startText.empty()) {
    session_.Finish(at);
  }
}

}  // namespace orvane
