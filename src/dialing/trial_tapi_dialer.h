#pragma once

#include <string>

#include "app/program_state.h"
#include "dialing/trial_dial_panel.h"
#include "journal/current_call.h"
#include "platform/prompts.h"
#include "platform/tapi_control.h"

namespace orvane {

// The options dialog's test dial through the current telephone line; no journal.
class TrialTapiDialer {
 public:
  TrialTapiDialer(TapiControl& tapi, Prompts& prompts, DialSettings& settings, CurrentCall& call,
                  TrialDialPanel& panel)
      : tapi_(tapi), prompts_(prompts), settings_(settings), call_(call), panel_(panel) {}

  // Calls `number` when the dialog's dial button is not pressed, otherwise drops the call. A
  // failure is reported and leaves the button idle.
  void TestDialTapi(const std::string& number);

 private:
  void Place(const std::string& number);
  void Drop();

  TapiControl& tapi_;
  Prompts& prompts_;
  DialSettings& settings_;
  CurrentCall& call_;
  TrialDialPanel& panel_;
};

}  // namespace orvane
