#pragma once

#include "platform/support_log.h"
#include "platform/tapi_control.h"

namespace orvane {

// Telephone lines whose requests, failures and events the log hears of.
class LoggedLines : public TapiControl, private TapiEvents {
 public:
  LoggedLines(TapiControl& lines, SupportLog& log) : lines_(lines), log_(log) {}

  void Initialise() override;
  int LineCount() override { return lines_.LineCount(); }
  std::string LineName(int line) override { return lines_.LineName(line); }
  LineInfo Info(int line) override { return lines_.Info(line); }
  void ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) override {
    lines_.ShowDialog(line, dialog, owner);
  }
  std::int32_t OpenLine(std::int32_t line, std::int32_t privileges, std::int32_t mediaModes,
                        std::int16_t options) override;
  void CloseLine(std::int32_t line) override;
  std::int32_t MakeCall(std::int32_t line, const std::string& dialString,
                        std::int16_t options) override;
  void DropCall(std::int32_t line, std::int32_t callHandle) override;
  void ShutDown() override;
  TapiTag Tag() const override { return lines_.Tag(); }
  void SetEvents(TapiEvents* events) override;

 private:
  // Each of these comes with a state of the call that says the same.
  void OnBusy(std::int32_t callHandle) override { events_->OnBusy(callHandle); }
  void OnConnected(std::int32_t callHandle) override { events_->OnConnected(callHandle); }
  void OnDisconnected(std::int32_t callHandle) override { events_->OnDisconnected(callHandle); }
  void OnLineMessage(const std::string& result, const std::string& function,
                     std::int32_t code) override;
  void OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) override;

  // Does it; tells what is to be done, and what stood in the way and for how long.
  template <typename Request>
  auto Told(std::initializer_list<LogPart> what, const Request& request);

  TapiControl& lines_;
  SupportLog& log_;
  TapiEvents* events_ = nullptr;
  // While a request runs, whose success is reported as an event.
  bool asking_ = false;
};

}  // namespace orvane
