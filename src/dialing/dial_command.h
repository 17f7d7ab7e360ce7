#pragma once

#include <optional>
#include <string>

#include "app/program_state.h"
#include "dialing/dial_panel.h"
#include "dialing/modem_dialer.h"
#include "dialing/redial_memory.h"
#include "dialing/session.h"
#include "dialing/tapi_dialer.h"
#include "platform/prompts.h"
#include "platform/support_log.h"

namespace orvane {

// The dial button: prepares the number in `txtNr` and places the call, or ends the running one.
class DialCommand {
 public:
  DialCommand(Prompts& prompts, SupportLog& log, ProgramState& state, Session& session,
              DialPanel& panel, RedialMemory& redial, ModemDialer& modem, TapiDialer& tapi)
      : prompts_(prompts),
        log_(log),
        state_(state),
        session_(session),
        panel_(panel),
        redial_(redial),
        modem_(modem),
        tapi_(tapi) {}

  // A click on either dial button, at that moment.
  void Click(const Moment& clicked);

  // Access code, digits, "*" and "#" of the last prepared call.
  const std::string& DialString() const { return dialString_; }

 private:
  void Prepare(const std::string& number);
  std::optional<Session::Way> ChooseWay();
  void PlaceOrEnd(const Moment& clicked);
  void TellClick(std::optional<Session::Way> way) const;

  Prompts& prompts_;
  SupportLog& log_;
  ProgramState& state_;
  Session& session_;
  DialPanel& panel_;
  RedialMemory& redial_;
  ModemDialer& modem_;
  TapiDialer& tapi_;
  std::string dialString_;
};

}  // namespace orvane
