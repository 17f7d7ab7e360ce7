#pragma once

#include <cstdint>
#include <string>

#include "app/program_state.h"
#include "dialing/dial_panel.h"
#include "dialing/line_listener.h"
#include "dialing/session.h"
#include "platform/clock.h"
#include "platform/prompts.h"
#include "platform/tapi_control.h"

namespace orvane {

// Dials and hangs up through the open telephone line for the dial window, and follows the line's
// calls.
class TapiDialer : public LineListener {
 public:
  // Everything referred to outlives the dialer.
  TapiDialer(TapiControl& tapi, const LocaleFormat& locale, Prompts& prompts,
             DialSettings& settings, Session& session, DialPanel& panel)
      : tapi_(tapi),
        locale_(locale),
        prompts_(prompts),
        settings_(settings),
        session_(session),
        panel_(panel) {}

  // Places a call to `dialString` when no session is on, otherwise ends the current call. The
  // session then stays on until the line reports the end. `clicked`: when the user wanted it.
  void DialTAPI(const std::string& dialString, const Moment& clicked);

  void Busy(std::int32_t callHandle, const Moment& at) override;
  void Connected(std::int32_t callHandle, const Moment& at) override;
  void Disconnected(std::int32_t callHandle, const Moment& at) override;
  void LineMessage(const std::string& result, const std::string& function,
                   std::int32_t code) override;
  void CallState(std::int32_t callHandle, std::int32_t callId, std::int32_t state,
                 const Moment& at) override;

 private:
  void Place(const std::string& dialString, const Moment& clicked);
  void ReopenLine();
  void Drop();
  bool WaitsForItsLine() const;
  void Idle(std::int32_t callHandle, const Moment& at);

  TapiControl& tapi_;
  const LocaleFormat& locale_;
  Prompts& prompts_;
  DialSettings& settings_;
  Session& session_;
  DialPanel& panel_;
};

}  // namespace orvane
