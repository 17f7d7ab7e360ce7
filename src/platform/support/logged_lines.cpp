#include "platform/support/logged_lines.h"

#include <utility>

#include "platform/support/error_text.h"
#include "platform/support/line_words.h"
#include "platform/text/stopwatch.h"

namespace orvane {
namespace {

// The number 0 is whatever call there may be: the program also asks for it when it ends.
std::string CallText(std::int32_t handle) {
  return handle == 0 ? "Gespräch, falls eines läuft: "
                     : "Gespräch " + std::to_string(handle) + ": ";
}

std::string LineText(std::int32_t line) {
  return "Leitung #" + std::to_string(line) + " ";
}

// Up as long as this lives.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
  ~Raised() { flag_ = false; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
};

}  // namespace

template <typename Request>
auto LoggedLines::Told(std::initializer_list<LogPart> what, const Request& request) {
  log_.Tell(LogTopic::kLine, what);
  const Raised asking(asking_);
  const Stopwatch watch;
  try {
    return request();
  } catch (const TapiError& error) {
    // A call that has just ended by itself, or none at all, is no failure.
    const bool isOver = error.Number() == kLineErrorInvalidCall;
    log_.Tell(LogTopic::kLine, {isOver ? std::string("es läuft keines mehr")
                                       : ErrorText(error.Number()) + ", " + error.Description(),
                                " (", watch.Text(), ")"});
    throw;
  }
}

void LoggedLines::Initialise() {
  const Stopwatch watch;
  Told({"Leitungen suchen"}, [this] { lines_.Initialise(); });
  const int count = lines_.LineCount();
  log_.Tell(LogTopic::kLine,
            {"Leitungen gefunden: ", std::to_string(count), " (", watch.Text(), ")"});
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
  if (line == kNoTapiLine) return lines_.CloseLine(line);
  Told({LineText(line), "schließen"}, [&] { lines_.CloseLine(line); });
}

std::int32_t LoggedLines::MakeCall(std::int32_t line, const std::string& dialString,
                                   std::int16_t options) {
  const Stopwatch watch;
  const std::int32_t handle = Told({LineText(line), "wählt ", {LogPart::Kind::kNumber, dialString}},
                                   [&] { return lines_.MakeCall(line, dialString, options); });
  log_.Tell(LogTopic::kLine, {CallText(handle), "angefordert (", watch.Text(), ")"});
  return handle;
}

void LoggedLines::DropCall(std::int32_t line, std::int32_t callHandle) {
  if (line == kNoTapiLine) return lines_.DropCall(line, callHandle);
  Told({CallText(callHandle), "trennen"}, [&] { lines_.DropCall(line, callHandle); });
}

void LoggedLines::ShutDown() {
  Told({"Leitungen aufgeben"}, [this] { lines_.ShutDown(); });
}

void LoggedLines::SetEvents(TapiEvents* events) {
  events_ = events;
  lines_.SetEvents(events == nullptr ? nullptr : this);
}

void LoggedLines::OnLineMessage(const std::string& result, const std::string& function,
                                std::int32_t code) {
  const std::string text = LineMessageText({result, function, code, asking_});
  log_.Tell(LogTopic::kLine, {{LogPart::Kind::kDetail, text}});
  events_->OnLineMessage(result, function, code);
}

void LoggedLines::OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) {
  log_.Tell(LogTopic::kLine, {CallText(callHandle), CallStateText(state)});
  events_->OnCallState(callHandle, callId, state);
}

}  // namespace orvane
