#pragma once

#include "app/program_state.h"
#include "dialing/dial_panel.h"
#include "dialing/modem_dialer.h"
#include "dialing/redial_memory.h"
#include "dialing/tapi_dialer.h"
#include "journal/current_call.h"
#include "platform/prompts.h"
#include "platform/support_log.h"

namespace orvane {

// The dial button: prepares the number in `txtNr` and places the call, or ends the running one.
class DialCommand {
 public:
  DialCommand(Prompts& prompts, SupportLog& log, ProgramState& state, CurrentCall& call,
              DialPanel& panel, RedialMemory& redial, ModemDialer& modem, TapiDialer& tapi)
      : prompts_(prompts),
        log_(log),
        state_(state),
        call_(call),
        panel_(panel),
        redial_(redial),
        modem_(modem),
        tapi_(tapi) {}

  // A click on either dial button.
  void Click();

  // Access code, digits, "*" and "#" of the last prepared call.
  const std::string& DialString() const { return dialString_; }

 private:
  enum class Way { kNone, kModem, kLine };

  void Prepare(const std::string& number);
  void RememberDigits(const std::string& digits);
  Way ChooseWay();
  void PlaceOrEnd();
  void TellClick() const;

  Prompts& prompts_;
  SupportLog& log_;
  ProgramState& state_;
  CurrentCall& call_;
  DialPanel& panel_;
  RedialMemory& redial_;
  ModemDialer& modem_;
  TapiDialer& tapi_;
  std::string dialString_;
  Way way_ = Way::kNone;
};

}  // namespace orvane
