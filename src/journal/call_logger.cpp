#include "journal/call_logger.h"

#include <string>

#include "app/date_time.h"
#include "app/log_step.h"
#include "journal/contact_lookup.h"
#include "journal/duration_text.h"

namespace orvane {

void CallLogger::LogCall(bool isStart, bool isBusy) {
  // The host may have named another user since the call began; its row is in the first one's
  // journal.
  const std::string journal =
      isStart || call_.startText.empty() ? state_.host.userPath : call_.userPath;
  if (isStart) {
    LogStart();
  } else if (!call_.connectText.empty()) {
    LogEnd(isBusy);
  }
  journal_.CompactTelList(journal);
}

void CallLogger::LogStart() {
  call_.startText = TimeText(clock_.Now());
  call_.userPath = state_.host.userPath;
  if (call_.company.empty()) Resolve();
  const NewCall stored = journal_.Insert(
      call_.userPath,
      {CallDirection::kOutgoing, display_.ExternTicked(), call_.startText, call_.lastDialedDigits,
       call_.company, call_.place, call_.person, call_.addressKey, call_.personKey});
  call_.company = stored.company;
  call_.place = stored.place;
  call_.person = stored.person;
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
  if (call_.addressKey == 0 && call_.personKey == 0) {
    log_.Tell(LogTopic::kCall, {"Kontakt: nicht gefunden"});
  } else {
    log_.Tell(LogTopic::kCall, {"Kontakt: ",
                                {LogPart::Kind::kName, call_.company},
                                ", Adresse ",
                                std::to_string(call_.addressKey),
                                ", Person ",
                                std::to_string(call_.personKey)});
  }
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
  log_.Tell(LogTopic::kCall, {isBusy ? "beendet: " : "beendet nach ",
                              duration.empty() ? "weniger als 1 Sek." : duration});
  // A call that was taken at the telephone itself has no row.
  if (!call_.startText.empty()) {
    journal_.Complete(call_.userPath,
                      {CallDirection::kOutgoing, call_.startText, call_.connectText, duration});
  }
  call_.startText.clear();
  call_.connectText.clear();
}

}  // namespace orvane
