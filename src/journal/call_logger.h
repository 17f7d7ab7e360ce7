#pragma once

#include "app/program_state.h"
#include "journal/call_display.h"
#include "journal/current_call.h"
#include "platform/clock.h"
#include "platform/database.h"
#include "platform/prompts.h"
#include "platform/support_log.h"

namespace orvane {

// The German duration text between two date-times (days since 1899-12-30), for example
// "1 Min. 5 Sek. "; every piece ends with a blank. A year counts 365 days, a month 30. Rounded
// to whole seconds; empty for none and for an end before the start.
std::string FormatDuration(double start, double end);

// Writes the start and the end of outgoing calls into the journal.
class CallLogger {
 public:
  // Everything referred to outlives the logger.
  CallLogger(DatabaseServices& databases, const Clock& clock, const LocaleFormat& locale,
             Prompts& prompts, SupportLog& log, ProgramState& state, CurrentCall& call,
             CallDisplay& display)
      : databases_(databases),
        clock_(clock),
        locale_(locale),
        prompts_(prompts),
        log_(log),
        state_(state),
        call_(call),
        display_(display) {}

  // At the start resolves the contact, shows it and inserts the journal row; at the end reports the
  // duration and completes the row of a call that was connected. `isBusy` is looked at only at the
  // end. Compacts a journal file that has grown too large.
  void LogCall(bool isStart, bool isBusy);

 private:
  void LogStart();
  void Resolve();
  void LogEnd(bool isBusy);
  void CompleteRow(const std::string& duration);

  DatabaseServices& databases_;
  const Clock& clock_;
  const LocaleFormat& locale_;
  Prompts& prompts_;
  SupportLog& log_;
  ProgramState& state_;
  CurrentCall& call_;
  CallDisplay& display_;
};

}  // namespace orvane
