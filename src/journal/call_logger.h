#pragma once

#include "app/program_state.h"
#include "journal/call_display.h"
#include "journal/current_call.h"
#include "journal/tel_list.h"
#include "platform/clock.h"
#include "platform/database.h"
#include "platform/prompts.h"
#include "platform/support_log.h"

namespace orvane {

// Writes the start and the end of outgoing calls into the journal.
class CallLogger {
 public:
  // Everything referred to outlives the logger.
  CallLogger(TelList& journal, DatabaseServices& databases, const LocaleFormat& locale,
             Prompts& prompts, SupportLog& log, ProgramState& state, CallDisplay& display)
      : journal_(journal),
        databases_(databases),
        locale_(locale),
        prompts_(prompts),
        log_(log),
        state_(state),
        display_(display) {}

  // At the start resolves the contact, shows it and inserts the journal row; at the end reports the
  // duration and completes the row of a call that was connected. `isBusy` is looked at only at the
  // end. `at` is when the user wanted the call, or when the line reported its end. Compacts a
  // journal file that has grown too large.
  void LogCall(CurrentCall& call, bool isStart, bool isBusy, const Moment& at);

 private:
  void LogStart(CurrentCall& call, const Moment& at);
  void Resolve(CurrentCall& call);
  void LogEnd(CurrentCall& call, bool isBusy, const Moment& at);

  TelList& journal_;
  DatabaseServices& databases_;
  const LocaleFormat& locale_;
  Prompts& prompts_;
  SupportLog& log_;
  ProgramState& state_;
  CallDisplay& display_;
};

}  // namespace orvane
