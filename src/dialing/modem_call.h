#pragma once

#include <functional>
#include <memory>
#include <string>

#include "app/error_report.h"
#include "app/work_queue.h"
#include "platform/clock.h"
#include "platform/event_loop.h"
#include "platform/prompts.h"
#include "platform/serial_control.h"

namespace orvane {

// What a call through the modem needs of the system; everything outlives the call.
struct ModemPort {
  SerialControl& serial;
  EventLoop& loop;
  const Clock& clock;
  Prompts& prompts;
  WorkQueue& queue;
};

// One call through a Hayes modem on a serial port. The call is a state that goes on when characters
// arrive, time passes or the call is ended; nothing here waits in a nested loop, so a call that was
// hung up can never send its dial command afterwards.
class ModemCall {
 public:
  enum class Phase { kNone, kAwaitingReply, kHolding };

  // What came of hanging up: the port was closed already, the modem was told, or it could not be
  // told, which is reported.
  enum class HungUp { kClosedBefore, kDone, kFailed };

  // `report` shows one line of the call's progress; `ended` hears that a call that was dialled
  // needs nothing more: it was held, or the modem is gone. It is not told of calls that are hung
  // up.
  ModemCall(
      const ModemPort& on, std::function<void(const std::string&)> report,
      std::function<void()> ended = [] {});
  ~ModemCall();
  ModemCall(const ModemCall&) = delete;
  ModemCall& operator=(const ModemCall&) = delete;

  // Opens the port and probes the modem; reports what is wrong and stops when that fails. Otherwise
  // runs `announce` and, once the modem has answered, dials `number` (digits, "*", "#").
  void Start(int port, const std::string& number, const std::function<void()>& announce);

  // Goes on-hook and closes the port.
  HungUp HangUp();

  // Forgets the call in progress without touching the port.
  void Abandon();

  Phase CurrentPhase() const { return phase_; }

 private:
  void Listen();
  bool Probe(int port);
  void ReportFailure(const ErrorState& error);
  void OnReceived();
  void SendDialCommand();
  void Hold();
  void OnDeviceError(const ErrorState& error);

  ModemPort on_;
  std::function<void(const std::string&)> report_;
  std::function<void()> ended_;

  bool listens_ = false;
  Phase phase_ = Phase::kNone;
  int port_ = 0;
  std::string number_;
  std::unique_ptr<EventLoop::Timer> hold_;
};

}  // namespace orvane
