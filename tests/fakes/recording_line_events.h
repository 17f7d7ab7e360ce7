#pragma once

#include <string>
#include <vector>

#include "platform/tapi_control.h"

namespace orvane {

// Writes down what lines report, one text an event; numbers of calls are left out.
class RecordingLineEvents : public TapiEvents {
 public:
  void OnBusy(std::int32_t callHandle) override { Add(callHandle, "busy"); }
  void OnConnected(std::int32_t callHandle) override { Add(callHandle, "connected"); }
  void OnDisconnected(std::int32_t callHandle) override { Add(callHandle, "disconnected"); }
  void OnLineMessage(const std::string& result, const std::string& function,
                     std::int32_t /*code*/) override {
    log.push_back(result + " " + function);
  }
  void OnCallState(std::int32_t callHandle, std::int32_t /*callId*/, std::int32_t state) override {
    Add(callHandle, std::to_string(state));
  }

  std::vector<std::string> log;
  // Of the latest event.
  std::int32_t handle = 0;

 private:
  void Add(std::int32_t callHandle, const std::string& text) {
    handle = callHandle;
    log.push_back(text);
  }
};

}  // namespace orvane
