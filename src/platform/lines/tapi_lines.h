#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/lines/line_service_provider.h"
#include "platform/tapi_control.h"

namespace orvane {

// The telephone lines of all providers, counted through in the order of the providers.
class TapiLines : public TapiControl, private TapiEvents {
 public:
  explicit TapiLines(std::vector<std::unique_ptr<LineServiceProvider>> providers);

  void Initialise() override;
  int LineCount() override;
  std::string LineName(int line) override;
  LineInfo Info(int line) override;
  void ShowDialog(int line, LineDialog dialog, std::uintptr_t owner) override;
  std::int32_t OpenLine(std::int32_t line, std::int32_t privileges, std::int32_t mediaModes,
                        std::int16_t options) override;
  void CloseLine(std::int32_t line) override;
  std::int32_t MakeCall(std::int32_t line, const std::string& dialString,
                        std::int16_t options) override;
  void DropCall(std::int32_t line, std::int32_t callHandle) override;
  void ShutDown() override;

  TapiTag Tag() const override { return tag_; }
  void SetEvents(TapiEvents* events) override { events_ = events; }

 private:
  // What the providers report goes on to the program.
  void OnBusy(std::int32_t callHandle) override;
  void OnConnected(std::int32_t callHandle) override;
  void OnDisconnected(std::int32_t callHandle) override;
  void OnLineMessage(const std::string& result, const std::string& function,
                     std::int32_t code) override;
  void OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) override;

  struct Place {
    LineServiceProvider& provider;
    int line;
  };
  Place Find(std::int32_t line) const;

  std::vector<std::unique_ptr<LineServiceProvider>> providers_;
  TapiEvents* events_ = nullptr;
  TapiTag tag_ = TapiTag::kNone;
};

}  // namespace orvane
