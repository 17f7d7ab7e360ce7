#include "platform/support/logged_serial.h"

#include <string>
#include <utility>

#include "platform/support/error_text.h"
#include "platform/text/stopwatch.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

std::string FailureText(const SerialError& error) {
  return ErrorText(error.Number()) + ", " + error.Description();
}

}  // namespace

// Tells what was done and how long it took, or what stood in the way.
void LoggedSerial::Tell(std::string_view what, const std::function<void()>& step) {
  const LogPart part(LogPart::Kind::kModem, what);
  const Stopwatch watch;
  try {
    step();
    log_.Tell(LogTopic::kModem, {part, " (", watch.Text(), ")"});
  } catch (const SerialError& error) {
    log_.Tell(LogTopic::kModem, {part, ": ", FailureText(error), " (", watch.Text(), ")"});
    throw;
  }
}

void LoggedSerial::SetCommPort(int port) {
  Tell("COM" + std::to_string(port) + " auswählen", [&] { port_.SetCommPort(port); });
}

void LoggedSerial::SetPortOpen(bool open) {
  if (open == port_.PortOpen()) return port_.SetPortOpen(open);
  Tell("COM" + std::to_string(CommPort()) + (open ? " öffnen" : " schließen"),
       [&] { port_.SetPortOpen(open); });
}

void LoggedSerial::Output(std::string_view bytes) {
  Tell(std::string(Trimmed(bytes, "\r")) + " senden", [&] { port_.Output(bytes); });
}

void LoggedSerial::SetReceiveHandler(std::function<void()> handler) {
  if (!handler) return port_.SetReceiveHandler(nullptr);
  port_.SetReceiveHandler([this, handler = std::move(handler)] {
    log_.Tell(LogTopic::kModem,
              {"empfangen: ", std::to_string(port_.InBufferCount()), " Zeichen seit dem Öffnen"});
    handler();
  });
}

void LoggedSerial::SetErrorHandler(std::function<void(const SerialError&)> handler) {
  if (!handler) return port_.SetErrorHandler(nullptr);
  port_.SetErrorHandler([this, handler = std::move(handler)](const SerialError& error) {
    log_.Tell(LogTopic::kModem, {"Ausfall: ", FailureText(error)});
    handler(error);
  });
}

}  // namespace orvane
