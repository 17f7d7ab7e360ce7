#include "dialing/modem_call.h"

#include <chrono>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

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

ModemCall::ModemCall(Services& services, WorkQueue& queue,
                     std::function<void(const std::string&)> report)
    : services_(services), queue_(queue), report_(std::move(report)) {}

ModemCall::~ModemCall() {
  if (!listens_) return;
  services_.serial.SetReceiveHandler(nullptr);
  services_.serial.SetErrorHandler(nullptr);
}

void ModemCall::Start(int port, const std::string& number, const std::function<void()>& announce) {
  Abandon();
  Listen();
  port_ = port;
  if (!Probe(port)) return;
  // The reply may come while the call is announced; from here on it counts.
  number_ = number;
  phase_ = Phase::kAwaitingReply;
  announce();
  // What was queued meanwhile, an order to close perhaps, comes before the dial command.
  queue_.Submit([this] { OnReceived(); });
}

// The port has one listener: the call that was started last.
void ModemCall::Listen() {
  listens_ = true;
  services_.serial.SetReceiveHandler([this] { queue_.Submit([this] { OnReceived(); }); });
  services_.serial.SetErrorHandler(
      [this](const SerialError& error) { queue_.Submit([this, error] { OnDeviceError(error); }); });
}

bool ModemCall::Probe(int port) {
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
  attempt([&] { serial.SetCommPort(port); });
  attempt([&] { serial.SetPortOpen(true); });
  attempt([&] { serial.Output(kProbeCommand); });
  if (!failure) return true;
  ReportFailure(*failure);
  return false;
}

void ModemCall::ReportFailure(const SerialError& error) {
  services_.prompts.Beep();
  if (services_.serial.CommPort() == port_ && error.Number() != kSerialNoOpenPort) {
    report_(">>> Fehler Nr." + std::to_string(error.Number()) + ": " + error.Description());
    report_(error.Description());
  } else {
    report_(">>> Fehler Nr.: 1010101");
    report_("Keine Kommunikationseinheit an Bus #" + std::to_string(port_));
  }
}

void ModemCall::OnReceived() {
  if (phase_ == Phase::kAwaitingReply && services_.serial.InBufferCount() >= kMinReplyCharacters) {
    SendDialCommand();
  }
}

void ModemCall::SendDialCommand() {
  try {
    services_.serial.Output(DialCommandText(number_));
  } catch (const SerialError& error) {
    OnDeviceError(error);
    return;
  }
  Hold();
}

// Keeps the call for half a minute after dialling; the line stays off-hook afterwards until the
// user hangs up.
void ModemCall::Hold() {
  phase_ = Phase::kHolding;
  const double now = SecondsOfDay(services_.clock.Now());
  const double deadline = std::nearbyint(now + kHoldSeconds);
  const auto wait =
      std::chrono::milliseconds(static_cast<std::int64_t>(std::ceil((deadline - now) * 1000)) + 1);
  hold_ = services_.loop.After(wait, [this] { phase_ = Phase::kNone; });
}

void ModemCall::OnDeviceError(const SerialError& error) {
  if (phase_ == Phase::kNone) return;
  Abandon();
  ReportFailure(error);
}

bool ModemCall::HangUp() {
  Abandon();
  SerialControl& serial = services_.serial;
  if (!serial.PortOpen()) return false;
  const auto attempt = [](const auto& step) {
    try {
      step();
    } catch (const SerialError&) {
      // The user hangs up; a port that is gone is as good as hung up.
    }
  };
  attempt([&] { serial.Output(kHangUpCommand); });
  attempt([&] { serial.SetPortOpen(false); });
  return true;
}

void ModemCall::Abandon() {
  phase_ = Phase::kNone;
  hold_.reset();
}

}  // namespace orvane
