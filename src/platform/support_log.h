#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace orvane {

// What a line of the support log is about.
enum class LogTopic { kProgram, kHost, kCall, kLine, kModem, kDatabase, kBox };

// A piece of a line, and what it is: a log that hides whom the user calls hides by kind. The text
// lives as long as the call that it is handed to.
struct LogPart {
  enum class Kind {
    kPlain,
    kNumber,    // a telephone number
    kName,      // a person, a company or a place
    kLineName,  // a telephone line, which may be named after its user
    kMessage,   // a message between the host and the dialer
    kModem,     // what is sent to a modem
    kPath,      // of a file or folder
    kDetail     // a failure in somebody else's words: what it quotes may be data
  };

  LogPart(const char* plain) : text(plain) {}         // NOLINT: read as text
  LogPart(const std::string& plain) : text(plain) {}  // NOLINT: read as text
  LogPart(Kind what, std::string_view content) : kind(what), text(content) {}

  Kind kind = Kind::kPlain;
  std::string_view text;
};

// Hears what happens, for whoever has to find out later why a call did not come about. May be told
// from any thread; never fails and never makes its teller wait.
class SupportLog {
 public:
  virtual ~SupportLog() = default;
  // Whether anybody is interested; to be asked before work that only the log needs.
  virtual bool Listening() const = 0;
  // One line, which gets the moment of this call. The parts follow each other without a blank.
  virtual void Tell(LogTopic topic, std::initializer_list<LogPart> parts) = 0;
};

// Nobody is interested.
class NoSupportLog : public SupportLog {
 public:
  bool Listening() const override { return false; }
  void Tell(LogTopic /*topic*/, std::initializer_list<LogPart> /*parts*/) override {}
};

}  // namespace orvane
