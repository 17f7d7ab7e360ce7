#pragma once

#include <cstdint>
#include <string>

#include "app/program_state.h"
#include "app/work_queue.h"
#include "dialing/line_panel.h"
#include "dialing/trial_dial_panel.h"
#include "journal/call_logger.h"
#include "journal/current_call.h"
#include "platform/clock.h"
#include "platform/prompts.h"
#include "platform/tapi_control.h"

namespace orvane {

// Dials and hangs up through the open telephone line, and follows the line's events. While the dial
// window is disabled the events go to the options dialog's test dial instead.
class TapiDialer : public TapiEvents {
 public:
  // Everything referred to outlives the dialer.
  TapiDialer(TapiControl& tapi, const Clock& clock, const LocaleFormat& locale, Prompts& prompts,
             DialSettings& settings, CurrentCall& call, WorkQueue& queue, CallLogger& logger,
             LinePanel& panel);
  ~TapiDialer() override;
  TapiDialer(const TapiDialer&) = delete;
  TapiDialer& operator=(const TapiDialer&) = delete;

  // Places a call to `dialString` when no session is on, otherwise ends the current call. The
  // session look then stays until the line reports the end.
  void DialTAPI(const std::string& dialString);

  // Hears nothing more of the lines; for the end of the window.
  void Abandon();

  // The options dialog while it is open, otherwise null. It is taken back before it dies.
  void SetTestDial(TrialDialPanel* testDial) { testDial_ = testDial; }

  // Events that arrive in the middle of a procedure wait for its end.
  void OnBusy(std::int32_t callHandle) override;
  void OnConnected(std::int32_t callHandle) override;
  void OnDisconnected(std::int32_t callHandle) override;
  void OnLineMessage(const std::string& result, const std::string& function,
                     std::int32_t code) override;
  void OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) override;

 private:
  void Place(const std::string& dialString);
  void ReopenLine();
  void Drop();

  void HandleBusy(std::int32_t callHandle);
  void HandleConnected(std::int32_t callHandle, const LocalTime& now);
  void HandleDisconnected(std::int32_t callHandle);
  void HandleLineMessage(const std::string& result, const std::string& function, std::int32_t code);
  void HandleCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state);
  bool WaitsForItsLine() const;
  void HandleIdle(std::int32_t callHandle);
  void HandleTestIdle(std::int32_t callHandle);
  void EndSession();
  void EndPending();
  bool IsOther(std::int32_t callHandle) const;
  bool IsTestCall(std::int32_t callHandle) const;
  bool TakeHandle(std::int32_t callHandle);
  void ReportTestState(const std::string& text, std::int32_t callHandle, std::int32_t callId);

  // Queues a handler; an error in it is reported under the procedure's name.
  void Handle(const std::string& procedure, const WorkQueue::Task& handler);

  TapiControl& tapi_;
  const Clock& clock_;
  const LocaleFormat& locale_;
  Prompts& prompts_;
  DialSettings& settings_;
  CurrentCall& call_;
  WorkQueue& queue_;
  CallLogger& logger_;
  LinePanel& panel_;
  TrialDialPanel* testDial_ = nullptr;
};

}  // namespace orvane
