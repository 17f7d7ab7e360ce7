#pragma once

#include <string>

#include "dialing/modem_call.h"
#include "dialing/trial_dial_panel.h"

namespace orvane {

// The options dialog's test dial through the modem: the dial window's port, a choice of its own, no
// journal.
class TrialModemDialer {
 public:
  TrialModemDialer(const ModemPort& port, TrialDialPanel& panel);

  // Calls `number` on the port that is selected in the dialog when its dial button is not pressed,
  // otherwise hangs up.
  void TestDialModem(const std::string& number);

  // Forgets the call in progress without touching port or dialog.
  void Abandon() { modem_.Abandon(); }

 private:
  TrialDialPanel& panel_;
  ModemCall modem_;
};

}  // namespace orvane
