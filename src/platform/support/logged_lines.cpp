#include "platform/support/logged_lines.h"

#include <array>
#include <cstdio>
#include <utility>

#include "platform/text/stopwatch.h"

namespace orvane {
namespace {

std::string StateText(std::int32_t state) {
  static constexpr std::pair<std::int32_t, const char*> kNames[] = {
      {kLineCallIdle, "frei"},
      {kLineCallDialing, "wählt"},
      {kLineCallRingback, "es läutet"},
      {kLineCallBusy, "besetzt"},
      {kLineCallConnected, "verbunden"},
      {kLineCallProceeding, "wird vermittelt"},
      {kLineCallDisconnected, "getrennt"}};
  std::array<char, 16> number{};
  std::snprintf(number.data(), number.size(), "0x%X", static_cast<unsigned>(state));
  for (const auto& [known, name] : kNames) {
    if (known == state) return std::string(name) + " (" + number.data() + ")";
  }
  return number.data();
}

std::string CallText(std::int32_t handle) {
  return "Gespräch " + std::to_string(handle) + ": ";
}

std::string LineText(std::int32_t line) {
  return "Leitung #" + std::to_string(line) + " ";
}

}  // namespace

template <typename Request>
auto LoggedLines::Told(std::initializer_list<LogPart> what, const Request& request) {
  log_.Tell(LogTopic::kLine, what);
  const Stopwatch watch;
  try {
    return request();
  } catch (const TapiError& error) {
    log_.Tell(LogTopic::kLine, {"Fehler ", std::to_string(error.Number()), ", ",
                                error.Description(), " (", watch.Text(), ")"});
    throw;
  }
}

void LoggedLines::Initialise() {
  Told({"Leitungen suchen"}, [this] { lines_.Initialise(); });
  const int count = lines_.LineCount();
  for (int line = 0; log_.Listening() && line < count; ++line) {
    const std::string name = lines_.LineName(line);
    log_.Tell(LogTopic::kLine, {LineText(line), "„", {LogPart::Kind::kLineName, name}, "“"});
  }
}

std::int32_t LoggedLines::OpenLine(std::int32_t line, std::int32_t privileges,
                                   std::int32_t mediaModes, std::int16_t options) {
  return Told({LineText(line), "öffnen"},
              [&] { return lines_.OpenLine(line, privileges, mediaModes, options); });
}

void LoggedLines::CloseLine(std::int32_t line) {
  Told({LineText(line), "schließen"}, [&] { lines_.CloseLine(line); });
}

std::int32_t LoggedLines::MakeCall(std::int32_t line, const std::string& dialString,
                                   std::int16_t options) {
  const std::int32_t handle = Told({LineText(line), "wählt ", {LogPart::Kind::kNumber, dialString}},
                                   [&] { return lines_.MakeCall(line, dialString, options); });
  log_.Tell(LogTopic::kLine, {CallText(handle), "angefordert"});
  return handle;
}

void LoggedLines::DropCall(std::int32_t line, std::int32_t callHandle) {
  Told({CallText(callHandle), "trennen"}, [&] { lines_.DropCall(line, callHandle); });
}

void LoggedLines::ShutDown() {
  Told({"Leitungen aufgeben"}, [this] { lines_.ShutDown(); });
}

void LoggedLines::SetEvents(TapiEvents* events) {
  events_ = events;
  lines_.SetEvents(events == nullptr ? nullptr : this);
}

void LoggedLines::OnBusy(std::int32_t callHandle) {
  log_.Tell(LogTopic::kLine, {CallText(callHandle), "die Gegenstelle ist besetzt"});
  events_->OnBusy(callHandle);
}

void LoggedLines::OnConnected(std::int32_t callHandle) {
  log_.Tell(LogTopic::kLine, {CallText(callHandle), "die Verbindung steht"});
  events_->OnConnected(callHandle);
}

void LoggedLines::OnDisconnected(std::int32_t callHandle) {
  log_.Tell(LogTopic::kLine, {CallText(callHandle), "die Verbindung ist beendet"});
  events_->OnDisconnected(callHandle);
}

void LoggedLines::OnLineMessage(const std::string& result, const std::string& function,
                                std::int32_t code) {
  log_.Tell(LogTopic::kLine, {"Meldung ", result, " ", function, " ", std::to_string(code)});
  events_->OnLineMessage(result, function, code);
}

void LoggedLines::OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) {
  log_.Tell(LogTopic::kLine, {CallText(callHandle), StateText(state)});
  events_->OnCallState(callHandle, callId, state);
}

}  // namespace orvane
