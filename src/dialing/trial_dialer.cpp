#include "dialing/trial_dialer.h"

#include <exception>
#include <utility>

#include "app/attempt.h"
#include "app/error_report.h"
#include "app/line_opening.h"
#include "platform/errors.h"

namespace orvane {

TrialDialer::TrialDialer(TapiControl& tapi, const ModemPort& port, const LocaleFormat& locale,
                         DialSettings& settings, TrialDialPanel& panel)
    : tapi_(tapi),
      prompts_(port.prompts),
      clock_(port.clock),
      locale_(locale),
      settings_(settings),
      panel_(panel),
      modem_(
          port, [&panel](const std::string& line) { panel.AppendProgress(line); },
          [this] { EndModemChain(); }) {}

void TrialDialer::Click(Session::Way way, const std::string& number) {
  ReportTime("Beginn der Befehlskette");
  if (way_.value_or(way) == Session::Way::kModem) {
    TestDialModem(number);
  } else {
    TestDialTapi(number);
    ReportTime("Ende der Befehlskette");
  }
}

void TrialDialer::TestDialModem(const std::string& number) {
  if (On()) {
    HangUpModem();
    ReportTime("Ende der Befehlskette");
    // The commands that the call had begun with end after those that ended it.
    EndModemChain();
    return;
  }
  SetWay(Session::Way::kModem);
  chainOpen_ = true;
  const int port = panel_.SelectedComPort();
  modem_.Start(port, number, [&] {
    panel_.AppendProgress("Gegenstelle wird angewählt: " + number);
    panel_.AppendProgress(">>> Wählbefehl über 'COM" + std::to_string(port) + "' gesendet.");
  });
  if (modem_.CurrentPhase() == ModemCall::Phase::kNone) EndModemChain();
}

void TrialDialer::HangUpModem() {
  if (modem_.HangUp() == ModemCall::HungUp::kDone) {
    panel_.AppendProgress(">>> Auflegesignal wurde gesendet.");
    panel_.AppendProgress("Status: <OK>");
  }
  SetWay(std::nullopt);
}

void TrialDialer::EndModemChain() {
  if (std::exchange(chainOpen_, false)) ReportTime("Ende der Befehlskette");
}

void TrialDialer::TestDialTapi(const std::string& number) {
  panel_.SetTestDialEnabled(false);
  const auto failure = Attempt([&] {
    if (On()) {
      DropLineCall();
    } else {
      PlaceOnLine(number);
    }
  });
  if (failure) {
    SetWay(std::nullopt);
    ShowError(prompts_, *failure, "TAPI-Testwahl");
  }
  panel_.SetTestDialEnabled(true);
}

void TrialDialer::PlaceOnLine(const std::string& number) {
  std::int32_t& line = settings_.tapiLineId;
  SetWay(Session::Way::kLine);
  panel_.AppendProgress("Öffne TAPI-Line: #" + std::to_string(line));
  panel_.AppendProgress("TAPI-Gerät: " + tapi_.LineName(line));
  panel_.AppendProgress("Gegenstelle wird angewählt: " + number);
  line_.Forget();
  // A line that was lost, or left closed by a new list of lines, is opened again.
  if (tapi_.NeedsInitialise()) line = OpenTapiLine(tapi_, line);
  line_.Placed(tapi_.MakeCall(line, number, kCallOptions));
}

void TrialDialer::DropLineCall() {
  panel_.AppendProgress("Verbindung wird getrennt...");
  try {
    tapi_.DropCall(settings_.tapiLineId, line_.Handle());
  } catch (const TapiError& error) {
    // The call has ended by itself at the same moment.
    if (error.Number() != kLineErrorInvalidCall) throw;
  }
  SetWay(std::nullopt);
}

void TrialDialer::End() {
  // Closing a line ends its call; the modem has to be told.
  if (way_ == Session::Way::kModem) HangUpModem();
  EndModemChain();
  SetWay(std::nullopt);
}

void TrialDialer::LineGone() {
  line_.Forget();
  if (way_ == Session::Way::kLine) SetWay(std::nullopt);
}

void TrialDialer::SetWay(std::optional<Session::Way> way) {
  way_ = way;
  panel_.SetTestDialIdle(!On());
}

// What happens on the line beside a call through the modem, or to another call, is only told.
bool TrialDialer::IsTestCall(std::int32_t callHandle) const {
  return way_ != Session::Way::kModem && !line_.IsOther(callHandle);
}

void TrialDialer::Connected(std::int32_t callHandle, const Moment& /*at*/) {
  if (IsTestCall(callHandle)) SetWay(Session::Way::kLine);
}

void TrialDialer::Disconnected(std::int32_t callHandle, const Moment& /*at*/) {
  if (IsTestCall(callHandle)) SetWay(std::nullopt);
}

void TrialDialer::LineMessage(const std::string& result, const std::string& function,
                              std::int32_t code) {
  panel_.AppendProgress("TapiMessage: " + result + "  " + function + "  " + std::to_string(code));
}

void TrialDialer::CallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state,
                            const Moment& /*at*/) {
  switch (state) {
    case kLineCallRingback:
      line_.Follow(callHandle);
      break;
    case kLineCallConnected:
      line_.Follow(callHandle);
      ReportState("*Verbindung hergestellt!", callHandle, callId);
      break;
    case kLineCallDisconnected:
      ReportState("*Verbindung getrennt!", callHandle, callId);
      break;
    case kLineCallIdle:
      if (IsTestCall(callHandle)) SetWay(std::nullopt);
      // A handle that outlived its test call would keep later calls from getting theirs.
      if (!line_.IsOther(callHandle)) line_.Forget();
      break;
    default:
      break;
  }
}

void TrialDialer::ReportState(const std::string& text, std::int32_t callHandle,
                              std::int32_t callId) {
  panel_.AppendProgress(text + " - Handle, ID: " + std::to_string(callHandle) + "  " +
                        std::to_string(callId));
  panel_.EnableAndFocusTestDial();
}

void TrialDialer::ReportTime(const std::string& what) {
  panel_.AppendProgress("<" + locale_.Time(clock_.Now().local) + ", " + what + ">");
}

}  // namespace orvane
