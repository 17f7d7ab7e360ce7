#include "dialing/modem_call.h"

#include <chrono>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

#include "app/attempt.h"
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

ModemCall::ModemCall(const ModemPort& on, std::function<void(const std::string&)> report,
                     std::function<void()> ended)
    : on_(on), report_(std::move(report)), ended_(std::move(ended)) {}

ModemCall::~ModemCall() {
  if (!listens_) return;
  on_.serial.SetReceiveHandler(nullptr);
  on_.serial.SetErrorHandler(nullptr);
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
  OnReceived();
}

// The port has one listener: the call that was started last.
void ModemCall::Listen() {
  listens_ = true;
  on_.serial.SetReceiveHandler([this] { on_.queue.Submit([this] { OnReceived(); }); });
  on_.serial.SetErrorHandler([this](const SerialError& error) {
    on_.queue.Submit([this, failure = ErrorStateOf(error)] { OnDeviceError(failure); });
  });
}

bool ModemCall::Probe(int port) {
  SerialControl& serial = on_.serial;
  // The first failure is the cause; what fails after it only follows from it.
  std::optional<ErrorState> failure;
  const auto attempt = [&failure](const auto& step) {
    const auto failed = Attempt(step);
    if (!failure) failure = failed;
  };
  attempt([&] { serial.SetCommPort(port); });
  attempt([&] { serial.SetPortOpen(true); });
  attempt([&] { serial.Output(kProbeCommand); });
  if (!failure) return true;
  ReportFailure(*failure);
  return false;
}

void ModemCall::ReportFailure(const ErrorState& error) {
  on_.prompts.Beep();
  if (on_.serial.CommPort() == port_ && error.number != kSerialNoOpenPort) {
    report_(">>> Fehler Nr." + std::to_string(error.number) + ": " + error.description);
    report_(error.description);
  } else {
    report_(">>> Fehler Nr.: 1010101");
    report_("Keine Kommunikationseinheit an Bus #" + std::to_string(port_));
  }
}

void ModemCall::OnReceived() {
  if (phase_ != Phase::kAwaitingReply || on_.serial.InBufferCount() < kMinReplyCharacters) return;
  // What was queued meanwhile, an order to close perhaps, comes before the dial command.
  on_.queue.Submit([this] {
    if (phase_ == Phase::kAwaitingReply) SendDialCommand();
  });
}

void ModemCall::SendDialCommand() {
  if (const auto failure = Attempt([this] { on_.serial.Output(DialCommandText(number_)); })) {
    OnDeviceError(*failure);
  } else {
    Hold();
  }
}

// Keeps the call for half a minute after dialling; the line stays off-hook afterwards until the
// user hangs up.
void ModemCall::Hold() {
  phase_ = Phase::kHolding;
  const double now = SecondsOfDay(on_.clock.Now().local);
  const double deadline = std::nearbyint(now + kHoldSeconds);
  const auto wait =
      std::chrono::milliseconds(static_cast<std::int64_t>(std::ceil((deadline - now) * 1000)) + 1);
  hold_ = on_.loop.After(wait, [this] {
    on_.queue.Submit([this] {
      if (phase_ != Phase::kHolding) return;
      Abandon();
      ended_();
    });
  });
}

void ModemCall::OnDeviceError(const ErrorState& error) {
  if (phase_ == Phase::kNone) return;
  Abandon();
  ReportFailure(error);
  ended_();
}

ModemCall::HungUp ModemCall::HangUp() {
  Abandon();
  SerialControl& serial = on_.serial;
  if (!serial.PortOpen()) return HungUp::kClosedBefore;
  const auto failure = Attempt([&] { serial.Output(kHangUpCommand); });
  if (failure) ReportFailure(*failure);
  // A port that is gone is as good as closed.
  Attempt([&] { serial.SetPortOpen(false); });
  return failure ? HungUp::kFailed : HungUp::kDone;
}

void ModemCall::Abandon() {
  phase_ = Phase::kNone;
  hold_.reset();
}

}  // namespace orvane
