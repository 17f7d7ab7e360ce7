#pragma once

#include <string>

#include "app/program_state.h"
#include "app/services.h"
#include "dialing/test_dial_panel.h"
#include "journal/current_call.h"

namespace orvane {

// The options dialog's test dial through the current telephone line; no journal.
class TestTapiDialer {
 public:
  TestTapiDialer(Services& services, ProgramState& state, CurrentCall& call, TestDialPanel& panel)
      : services_(services), state_(state), call_(call), panel_(panel) {}

  // Calls `number` when the dialog's dial button is not pressed, otherwise drops the call. A
  // failure is reported and leaves the button idle.
  void TestDialTapi(const std::string& number);

 private:
  void Place(const std::string& number);
  void Drop();

  Services& services_;
  ProgramState& state_;
  CurrentCall& call_;
  TestDialPanel& panel_;
};

}  // namespace orvane
