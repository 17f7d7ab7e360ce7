#pragma once

#include <string>
#include <vector>

#include "platform/errors.h"
#include "platform/tapi_control.h"

namespace orvane {

// Telephone lines in memory; records what was asked of them.
class FakeTapi : public TapiControl {
 public:
  void Initialise() override {
    tag = TapiTag::kClosed;
    log.emplace_back("init");
  }
  int LineCount() override { return static_cast<int>(lineNames.size()); }
  std::string LineName(int line) override { return lineNames.at(static_cast<std::size_t>(line)); }
  LineInfo Info(int line) override {
    LineInfo known = info;
    known.addresses.push_back(LineName(line));
    return known;
  }
  void ShowDialog(int line, LineDialog dialog, std::uintptr_t /*owner*/) override {
    log.push_back((dialog == LineDialog::kDialling ? "dialling " : "device ") +
                  std::to_string(line));
    if (failing) throw TapiError(-2147483575, "Kein Dialog");
  }
  std::int32_t OpenLine(std::int32_t line, std::int32_t privileges, std::int32_t mediaModes,
                        std::int16_t options) override {
    log.push_back("open " + std::to_string(line) + " " + std::to_string(privileges) + " " +
                  std::to_string(mediaModes) + " " + std::to_string(options));
    if (line == goneLine) throw TapiError(-2147483615, "Gerät entfernt");
    tag = TapiTag::kOpened;
    return line;
  }
  void CloseLine(std::int32_t line) override {
    log.push_back("close " + std::to_string(line));
    if (line == goneLine) throw TapiError(-2147483615, "Gerät entfernt");
    tag = TapiTag::kClosed;
  }
  std::int32_t MakeCall(std::int32_t line, const std::string& dialString,
                        std::int16_t options) override {
    log.push_back("call " + std::to_string(line) + " " + dialString);
    if (options != 0) log.push_back("options " + std::to_string(options));
    if (failing) throw TapiError(-2147483576, "Leitung gestört");
    return nextCall;
  }
  void DropCall(std::int32_t line, std::int32_t callHandle) override {
    log.push_back("drop " + std::to_string(line) + " " + std::to_string(callHandle));
    if (failing) throw TapiError(-2147483576, "Leitung gestört");
  }
  void ShutDown() override {
    log.emplace_back("shutdown");
    tag = TapiTag::kNone;
  }
  TapiTag Tag() const override { return tag; }
  void SetEvents(TapiEvents* listener) override { events = listener; }

  std::vector<std::string> lineNames;
  std::vector<std::string> log;
  // What every line tells about itself, before its address.
  LineInfo info;
  // Who hears the events, for tests that play a call.
  TapiEvents* events = nullptr;
  // What the next call will be named by.
  std::int32_t nextCall = 7;
  // The device that was pulled.
  std::int32_t goneLine = -1;
  // Placing and dropping calls and showing dialogs fails.
  bool failing = false;
  TapiTag tag = TapiTag::kNone;
};

}  // namespace orvane
