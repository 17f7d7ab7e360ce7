#include "journal/call_logger.h"

#include <string>

#include "app/date_time.h"
#include "app/log_step.h"
#include "journal/contact_lookup.h"
#include "journal/duration_text.h"

namespace orvane {

void CallLogger::LogCall(CurrentCall& call, bool isStart, bool isBusy, const Moment& at) {
  // The host may have named another user since the call began; its row is in the first one's
  // journal.
  const std::string journal =
      isStart || call.startText.empty() ? state_.host.userPath : call.userPath;
  if (isStart) {
    LogStart(call, at);
  } else if (!call.connectText.empty()) {
    LogEnd(call, isBusy, at);
  }
  journal_.CompactTelList(journal);
}

void CallLogger::LogStart(CurrentCall& call, const Moment& at) {
  call.startText = TimeText(at.local);
  call.userPath = state_.host.userPath;
  if (call.company.empty()) Resolve(call);
  const NewCall stored =
      journal_.Insert(call.userPath, {CallDirection::kOutgoing, display_.ExternTicked(),
                                      call.startText, call.lastDialedDigits, call.company,
                                      call.place, call.person, call.addressKey, call.personKey});
  call.company = stored.company;
  call.place = stored.place;
  call.person = stored.person;
}

void CallLogger::Resolve(CurrentCall& call) {
  if (!state_.databases.host) state_.databases.host = databases_.NewConnection();
  {
    const LogStep step(log_, "Kontakt suchen");
    if (display_.ExternTicked()) {
      ResolveNumber(prompts_, state_, call);
    } else {
      ResolveExtension(prompts_, state_, call);
    }
  }
  if (call.addressKey == 0 && call.personKey == 0) {
    log_.Tell(LogTopic::kCall, {"Kontakt: nicht gefunden"});
  } else {
    log_.Tell(LogTopic::kCall, {"Kontakt: ",
                                {LogPart::Kind::kName, call.company},
                                ", Adresse ",
                                std::to_string(call.addressKey),
                                ", Person ",
                                std::to_string(call.personKey)});
  }
  call.contactText = call.company + "\r\n" + call.place + "\r\n\r\n" + call.person;
  display_.SetContactLabel(call.contactText);
}

void CallLogger::LogEnd(CurrentCall& call, bool isBusy, const Moment& at) {
  std::string duration = "Besetzt";
  if (!isBusy) {
    duration = FormatDuration(call.connectDateTime, at.universal);
    display_.AddStatus("Getrennt um " + locale_.Time(at.local));
    display_.AddStatus("Gesprächsdauer: " + duration);
  }
  log_.Tell(LogTopic::kCall, {isBusy ? "beendet: " : "beendet nach ",
                              duration.empty() ? "weniger als 1 Sek." : duration});
  // A call that was taken at the telephone itself has no row.
  if (!call.startText.empty()) {
    journal_.Complete(call.userPath,
                      {CallDirection::kOutgoing, call.startText, call.connectText, duration});
  }
  call.startText.clear();
  call.connectText.clear();
}

}  // namespace orvane
