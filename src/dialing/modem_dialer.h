#pragma once

#include <memory>
#include <string>

#include "app/program_state.h"
#include "app/services.h"
#include "app/work_queue.h"
#include "dialing/dial_panel.h"
#include "journal/call_logger.h"
#include "journal/current_call.h"

namespace orvane {

// Dials and hangs up through a Hayes modem on a serial port. A call is a state that goes on when
// characters arrive, time passes or the call is ended; nothing here waits in a nested loop, so a
// call that was hung up can never send its dial command afterwards.
class ModemDialer {
 public:
  ModemDialer(Services& services, ProgramState& state, CurrentCall& call, WorkQueue& queue,
              CallLogger& logger, DialPanel& panel);
  ~ModemDialer();
  ModemDialer(const ModemDialer&) = delete;
  ModemDialer& operator=(const ModemDialer&) = delete;

  enum class Phase { kNone, kAwaitingReply, kHolding };

  // Places a call to `number` (digits, "*", "#") when no session is on, otherwise ends the call.
  void DialModem(const std::string& number);

  // What the call in progress waits for.
  Phase CurrentPhase() const { return phase_; }

  // Forgets the call in progress without touching port or window; for the end of the window.
  void Abandon();

 private:
  void Dial(const std::string& number);
  void HangUp();
  bool Probe();
  void ReportFailure(const SerialError& error);
  void AwaitReply(const std::string& number);
  void OnReceived();
  void SendDialCommand();
  void Hold();
  void OnDeviceError(const SerialError& error);

  Services& services_;
  ProgramState& state_;
  CurrentCall& call_;
  WorkQueue& queue_;
  CallLogger& logger_;
  DialPanel& panel_;

  Phase phase_ = Phase::kNone;
  std::string pendingNumber_;
  std::unique_ptr<EventLoop::Timer> hold_;
};

}  // namespace orvane
