#pragma once

#include <string>

#include "app/program_state.h"
#include "dialing/dial_panel.h"
#include "dialing/modem_call.h"
#include "journal/call_logger.h"
#include "journal/current_call.h"

namespace orvane {

// Dials and hangs up through the modem for the dial window.
class ModemDialer {
 public:
  ModemDialer(const ModemPort& port, const DialSettings& settings, CurrentCall& call,
              CallLogger& logger, DialPanel& panel);

  // Places a call to `number` (digits, "*", "#") when no session is on, otherwise ends the call.
  void DialModem(const std::string& number);

  // What the call in progress waits for.
  ModemCall::Phase CurrentPhase() const { return modem_.CurrentPhase(); }

  // Forgets the call in progress without touching port or window; for the end of the window.
  void Abandon() { modem_.Abandon(); }

 private:
  void HangUp();

  const DialSettings& settings_;
  CurrentCall& call_;
  CallLogger& logger_;
  DialPanel& panel_;
  ModemCall modem_;
};

}  // namespace orvane
