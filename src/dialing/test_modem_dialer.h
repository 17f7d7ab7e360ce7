#pragma once

#include <string>

#include "app/services.h"
#include "app/work_queue.h"
#include "dialing/modem_call.h"
#include "dialing/test_dial_panel.h"

namespace orvane {

// The options dialog's test dial through the modem: the dial window's port, a choice of its own, no
// journal.
class TestModemDialer {
 public:
  TestModemDialer(Services& services, WorkQueue& queue, TestDialPanel& panel);

  // Calls `number` on the port that is selected in the dialog when its dial button is not pressed,
  // otherwise hangs up.
  void TestDialModem(const std::string& number);

  // Forgets the call in progress without touching port or dialog.
  void Abandon() { modem_.Abandon(); }

 private:
  TestDialPanel& panel_;
  ModemCall modem_;
};

}  // namespace orvane
