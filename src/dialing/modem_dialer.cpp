#include "dialing/modem_dialer.h"

#include <chrono>
#include <cmath>
#include <optional>
#include <string_view>

#include "app/date_time.h"

namespace orvane {
namespace {

constexpr std::string_view kProbeCommand = "AT\r";
constexpr std::string_view kHangUpCommand = "ATH0\r";
constexpr int kMinReplyCharacters = 2;
constexpr double kHoldSeconds = 30;

std::string DialCommandText(const std::string& number) {
  return "ATDT " + number + "\r";
}

}  // namespace

ModemDialer::ModemDialer(Services& services, ProgramState& state, CurrentCall& call,
                         WorkQueue& queue, CallLogger& logger, DialPanel& panel)
    : services_(services),
      state_(state),
      call_(call),
      queue_(queue),
      logger_(logger),
      panel_(panel) {
  services_.serial.SetReceiveHandler([this] { queue_.Submit([this] { OnReceived(); }); });
  services_.serial.SetErrorHandler(
      [this](const SerialError& error) { queue_.Submit([this, error] { OnDeviceError(error); }); });
}

ModemDialer::~ModemDialer() {
  services_.serial.SetReceiveHandler(nullptr);
  services_.serial.SetErrorHandler(nullptr);
}

void ModemDialer::DialModem(const std::string& number) {
  if (panel_.SessionOn()) {
    HangUp();
  } else {
    Dial(number);
  }
}

void ModemDialer::Abandon() {
  phase_ = Phase::kNone;
  hold_.reset();
}

void ModemDialer::Dial(const std::string& number) {
  Abandon();
  panel_.SetDialButtonIdle(false);
  if (!Probe()) return;
  panel_.AddStatus(">>> Wählen: " + number);
  AwaitReply(number);
  logger_.LogCall(true, false);
  // What was queued meanwhile, an order to close perhaps, comes before the dial command.
  queue_.Submit([this] { OnReceived(); });
}

bool ModemDialer::Probe() {
  SerialControl& serial = services_.serial;
  std::optional<SerialError> failure;
  const auto attempt = [&failure](const auto& step) {
    try {
      step();
    } catch (const SerialError& error) {
      // The first failure is the cause; what fails after it only follows from it.
      if (!failure) failure = error;
    }
  };
  attempt([&] { serial.SetCommPort(state_.settings.comPortNumber); });
  attempt([&] { serial.SetPortOpen(true); });
  attempt([&] { serial.Output(kProbeCommand); });
  if (!failure) return true;
  ReportFailure(*failure);
  return false;
}

void ModemDialer::ReportFailure(const SerialError& error) {
  const int port = state_.settings.comPortNumber;
  services_.prompts.Beep();
  if (services_.serial.CommPort() == port && error.Number() != kSerialNoOpenPort) {
    panel_.AddStatus(">>> Fehler Nr." + std::to_string(error.Number()) + ": " +
                     error.Description());
    panel_.AddStatus(error.Description());
  } else {
    panel_.AddStatus(">>> Fehler Nr.: 1010101");
    panel_.AddStatus("Keine Kommunikationseinheit an Bus #" + std::to_string(port));
  }
}

// The reply may come while the journal is written; from here on it counts.
void ModemDialer::AwaitReply(const std::string& number) {
  pendingNumber_ = number;
  phase_ = Phase::kAwaitingReply;
}

void ModemDialer::OnReceived() {
  if (phase_ == Phase::kAwaitingReply && services_.serial.InBufferCount() >= kMinReplyCharacters) {
    SendDialCommand();
  }
}

void ModemDialer::SendDialCommand() {
  try {
    services_.serial.Output(DialCommandText(pendingNumber_));
  } catch (const SerialError& error) {
    OnDeviceError(error);
    return;
  }
  Hold();
}

// Keeps the call for half a minute after dialling; the line stays off-hook afterwards until the
// user hangs up.
void ModemDialer::Hold() {
  phase_ = Phase::kHolding;
  const double now = SecondsOfDay(services_.clock.Now());
  const double deadline = std::nearbyint(now + kHoldSeconds);
  const auto wait =
      std::chrono::milliseconds(static_cast<std::int64_t>(std::ceil((deadline - now) * 1000)) + 1);
  hold_ = services_.loop.After(wait, [this] { phase_ = Phase::kNone; });
}

void ModemDialer::OnDeviceError(const SerialError& error) {
  if (phase_ == Phase::kNone) return;
  Abandon();
  ReportFailure(error);
}

void ModemDialer::HangUp() {
  Abandon();
  call_.startText.clear();
  SerialControl& serial = services_.serial;
  if (serial.PortOpen()) {
    const auto attempt = [](const auto& step) {
      try {
        step();
      } catch (const SerialError&) {
        // The user hangs up; a port that is gone is as good as hung up.
      }
    };
    attempt([&] { serial.Output(kHangUpCommand); });
    attempt([&] { serial.SetPortOpen(false); });
    panel_.AddStatus(">>> Aufgelegt.");
    panel_.AddStatus("Status: <OK>");
  }
  panel_.SetDialButtonIdle(true);
}

}  // namespace orvane
