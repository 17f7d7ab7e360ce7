#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "app/work_queue.h"
#include "dialing/dial_panel.h"
#include "dialing/line_listener.h"
#include "platform/clock.h"
#include "platform/prompts.h"
#include "platform/tapi_control.h"

namespace orvane {

// Hears the events of the telephone lines and notes when each came. Those that come in the middle
// of a procedure wait for its end. They go to the dial window's calls or, while that window is
// disabled, to the options dialog's test dial.
class LineEvents : public TapiEvents {
 public:
  // Everything referred to outlives the events.
  LineEvents(TapiControl& tapi, const Clock& clock, Prompts& prompts, WorkQueue& queue,
             const DialPanel& panel, LineListener& calls);
  ~LineEvents() override;
  LineEvents(const LineEvents&) = delete;
  LineEvents& operator=(const LineEvents&) = delete;

  // The options dialog's test dial while it is open, otherwise null. It is taken back before it
  // dies.
  void SetTestDial(LineListener* testDial) { testDial_ = testDial; }

  // Hears nothing more of the lines; for the end of the window.
  void Abandon();

  void OnBusy(std::int32_t callHandle) override;
  void OnConnected(std::int32_t callHandle) override;
  void OnDisconnected(std::int32_t callHandle) override;
  void OnLineMessage(const std::string& result, const std::string& function,
                     std::int32_t code) override;
  void OnCallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state) override;

 private:
  // Queues what is to be done; an error in it is reported under the procedure's name.
  void Hand(const std::string& procedure, std::function<void(LineListener&, const Moment&)> event);

  TapiControl& tapi_;
  const Clock& clock_;
  Prompts& prompts_;
  WorkQueue& queue_;
  const DialPanel& panel_;
  LineListener& calls_;
  LineListener* testDial_ = nullptr;
};

}  // namespace orvane
