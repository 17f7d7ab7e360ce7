#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/program_state.h"
#include "dialing/line_call.h"
#include "dialing/line_listener.h"
#include "dialing/modem_call.h"
#include "dialing/session.h"
#include "dialing/trial_dial_panel.h"
#include "platform/clock.h"
#include "platform/tapi_control.h"

namespace orvane {

// The options dialog's test call: through the modem on a port of its own choice, or through the
// current telephone line; no journal. Owns whether a test call is on and how it was placed, and
// follows the line while the dialog is open.
class TrialDialer : public LineListener {
 public:
  // Everything referred to outlives the dialer.
  TrialDialer(TapiControl& tapi, const ModemPort& port, const LocaleFormat& locale,
              DialSettings& settings, TrialDialPanel& panel);

  bool On() const { return way_.has_value(); }
  // The handle of the test call on the line, 0 while it is not known.
  std::int32_t CallHandle() const { return line_.Handle(); }

  // The test dial's click: calls `number` by that way when no test call is on, otherwise ends it
  // the way it was placed.
  void Click(Session::Way way, const std::string& number);

  // Ends the test call without asking a line that is about to be closed.
  void End();
  // The line was closed, or shut down with all others, and its calls are over.
  void LineGone();
  // Forgets the call in progress without touching port or dialog.
  void Abandon() { modem_.Abandon(); }

  void Busy(std::int32_t /*callHandle*/, const Moment& /*at*/) override {}
  void Connected(std::int32_t callHandle, const Moment& at) override;
  void Disconnected(std::int32_t callHandle, const Moment& at) override;
  void LineMessage(const std::string& result, const std::string& function,
                   std::int32_t code) override;
  void CallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state,
                 const Moment& at) override;

 private:
  void TestDialModem(const std::string& number);
  void HangUpModem();
  void EndModemChain();
  void TestDialTapi(const std::string& number);
  void PlaceOnLine(const std::string& number);
  void DropLineCall();
  void SetWay(std::optional<Session::Way> way);
  bool IsTestCall(std::int32_t callHandle) const;
  void ReportState(const std::string& text, std::int32_t callHandle, std::int32_t callId);
  void ReportTime(const std::string& what);

  TapiControl& tapi_;
  Prompts& prompts_;
  const Clock& clock_;
  const LocaleFormat& locale_;
  DialSettings& settings_;
  TrialDialPanel& panel_;
  ModemCall modem_;
  // Commands to the modem were begun and are not through.
  bool chainOpen_ = false;
  LineCall line_;
  std::optional<Session::Way> way_;
};

}  // namespace orvane
