#pragma once

#include <string>

#include "app/program_state.h"
#include "dialing/dial_panel.h"
#include "dialing/modem_call.h"
#include "dialing/session.h"
#include "platform/clock.h"

namespace orvane {

// Dials and hangs up through the modem for the dial window.
class ModemDialer {
 public:
  ModemDialer(const ModemPort& port, const DialSettings& settings, Session& session,
              DialPanel& panel);

  // Places a call to `number` (digits, "*", "#") when no session is on, otherwise ends the call.
  // `clicked`: when the user wanted it.
  void DialModem(const std::string& number, const Moment& clicked);

  // What the call in progress waits for.
  ModemCall::Phase CurrentPhase() const { return modem_.CurrentPhase(); }

  // Forgets the call in progress without touching port or window; for the end of the window.
  void Abandon() { modem_.Abandon(); }

 private:
  void HangUp();

  const DialSettings& settings_;
  Session& session_;
  DialPanel& panel_;
  ModemCall modem_;
};

}  // namespace orvane
