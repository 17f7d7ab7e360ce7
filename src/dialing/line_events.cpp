#include "dialing/line_events.h"

#include <utility>

#include "app/attempt.h"
#include "app/error_report.h"

namespace orvane {

LineEvents::LineEvents(TapiControl& tapi, const Clock& clock, Prompts& prompts, WorkQueue& queue,
                       const DialPanel& panel, LineListener& calls)
    : tapi_(tapi), clock_(clock), prompts_(prompts), queue_(queue), panel_(panel), calls_(calls) {
  tapi_.SetEvents(this);
}

LineEvents::~LineEvents() {
  Abandon();
}

void LineEvents::Abandon() {
  tapi_.SetEvents(nullptr);
}

void LineEvents::Hand(const std::string& procedure,
                      std::function<void(LineListener&, const Moment&)> event) {
  queue_.Submit([this, procedure, event = std::move(event), at = clock_.Now()] {
    LineListener* const listener = panel_.WindowEnabled() ? &calls_ : testDial_;
    if (listener == nullptr) return;
    if (const auto failure = Attempt([&] { event(*listener, at); })) {
      ShowError(prompts_, *failure, procedure);
    }
  });
}

void LineEvents::OnBusy(std::int32_t callHandle) {
  Hand("TAPIOnBusy", [callHandle](LineListener& to, const Moment& at) { to.Busy(callHandle, at); });
}

void LineEvents::OnConnected(std::int32_t callHandle) {
  Hand("TAPIOnConnected",
       [callHandle](LineListener& to, const Moment& at) { to.Connected(callHandle, at); });
}

void LineEvents::OnDisconnected(std::int32_t callHandle) {
  Hand("TAPIOnDisconnected",
       [callHandle](LineListener& to, const Moment& at) { to.Disconnected(callHandle, at); });
}

void LineEvents::OnLineMessage(const std::string& result, const std::string& function,
                               std::int32_t code) {
  // The control itself follows what its lines report.
  if (result == "SUCCESS" && (function == "TapiLineInit" || function == "TapiLineClose")) return;
  queue_.Submit([this, result, function, code] {
    // A line that is back concerns the dial window, whoever is shown.
    calls_.LineMessage(result, function, code);
    if (!panel_.WindowEnabled() && testDial_ != nullptr) {
      testDial_->LineMessage(result, function, code);
    }
  });
}

void LineEvents::OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) {
  Hand("TAPI_CallState", [callHandle, callId, state](LineListener& to, const Moment& at) {
    to.CallState(callHandle, callId, state, at);
  });
}

}  // namespace orvane
