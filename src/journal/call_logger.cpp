#include "journal/call_logger.h"

#include <string>
#include <utility>

#include "app/date_time.h"
#include "app/log_step.h"
#include "journal/contact_lookup.h"
#include "journal/journal_compaction.h"
#include "journal/tel_list.h"

namespace orvane {

void CallLogger::LogCall(bool isStart, bool isBusy) {
  if (isStart) {
    LogStart();
  } else if (!call_.connectText.empty()) {
    LogEnd(isBusy);
  }
  if (JournalIsLarge(state_)) CompactTelList(databases_, state_);
}

void CallLogger::LogStart() {
  call_.startText = TimeText(clock_.Now());
  call_.userPath = state_.host.userPath;
  if (call_.company.empty()) Resolve();
  const LogStep step(log_, "Anruf ins Journal schreiben");
  std::string kind = display_.ExternTicked() ? "1" : "2";
  TelList(prompts_, state_, kind, call_.startText, "0", "", call_.lastDialedDigits, call_.company,
          call_.place, call_.person, call_.addressKey, call_.personKey);
}

void CallLogger::Resolve() {
  if (!state_.databases.host) state_.databases.host = databases_.NewConnection();
  {
    const LogStep step(log_, "Kontakt suchen");
    if (display_.ExternTicked()) {
      ResolveNumber(prompts_, state_, call_);
    } else {
      ResolveExtension(prompts_, state_, call_);
    }
  }
  log_.Tell(LogTopic::kCall, {"Kontakt: Adresse ",
                              std::to_string(call_.addressKey),
                              ", Person ",
                              std::to_string(call_.personKey),
                              ", ",
                              {LogPart::Kind::kName, call_.company}});
  display_.SetContactLabel(call_.company + "\r\n" + call_.place + "\r\n\r\n" + call_.person);
}

void CallLogger::LogEnd(bool isBusy) {
  std::string duration = "Besetzt";
  if (!isBusy) {
    const LocalTime now = clock_.Now();
    duration = FormatDuration(call_.connectDateTime, ToDateTime(now));
    display_.AddStatus("Getrennt um " + locale_.Time(now));
    display_.AddStatus("Gesprächsdauer: " + duration);
  }
  log_.Tell(LogTopic::kCall, {"beendet, Dauer: ", duration});
  // A call that was taken at the telephone itself has no row.
  if (!call_.startText.empty()) CompleteRow(duration);
  call_.startText.clear();
  call_.connectText.clear();
}

void CallLogger::CompleteRow(const std::string& duration) {
  // The host may have named another user since the call began; its row is in the first one's
  // journal.
  const bool otherUser = call_.userPath != state_.host.userPath;
  const std::string current = std::exchange(state_.host.userPath, call_.userPath);
  if (otherUser) state_.databases.journalConnectionString.clear();
  const LogStep step(log_, "Dauer ins Journal schreiben");
  std::string kind = "o";
  TelList(prompts_, state_, kind, call_.startText, call_.connectText, duration,
          call_.lastDialedDigits, call_.company, call_.place, call_.person, call_.addressKey,
          call_.personKey);
  state_.host.userPath = current;
  if (otherUser) state_.databases.journalConnectionString.clear();
}

}  // namespace orvane
