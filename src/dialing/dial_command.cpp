#include "dialing/dial_command.h"

#include "dialing/number_preparation.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

// A number of fewer characters is always internal.
constexpr std::size_t kMinExternalCharacters = 4;
constexpr std::uint8_t kTestModemPort = 1;

void ChooseExtern(DialPanel& panel, const std::string& number) {
  if (number.size() < kMinExternalCharacters) {
    panel.SetExternTicked(false);
  } else if (!panel.ExternVisible()) {
    panel.SetExternTicked(true);
  }
}

}  // namespace

void DialCommand::Click() {
  call_.canonicalNumber.clear();
  const std::string number = PrepareDialNumber(panel_.NumberText(), state_.settings.countryPrefix);
  if (state_.host.userNumber == 0) {
    log_.Tell(LogTopic::kCall, {"Wählen ohne Wirkung: noch kein Benutzer"});
    return;
  }
  const bool places = !panel_.SessionOn();
  if (places) Prepare(number);
  PlaceOrEnd();
  if (places) redial_.Record(panel_.NumberText());
}

void DialCommand::Prepare(const std::string& number) {
  if (panel_.HistoryShown()) panel_.ToggleHistory();
  panel_.ClearStatus();
  ChooseExtern(panel_, number);
  const DialSettings& settings = state_.settings;
  if (panel_.ExternTicked()) {
    dialString_ = Trim(settings.outsideLineExt);
    call_.canonicalNumber = NormalizeNumber(panel_.NumberText(), settings.countryPrefix);
  } else {
    dialString_ = Trim(settings.outsideLineInt);
  }
  dialString_ += FilterChars(number, "0123456789*#", true);
  RememberDigits(FilterChars(number, kDigits, true));
}

void DialCommand::RememberDigits(const std::string& digits) {
  // A number that the host handed in with its country prefix is remembered by the digits of the
  // field; it is still the number of the contact that came with it.
  const std::string fieldDigits = FilterChars(panel_.NumberText(), kDigits, true);
  const bool unchanged = digits == call_.lastDialedDigits || fieldDigits == call_.lastDialedDigits;
  call_.lastDialedDigits = digits;
  if (unchanged) return;
  call_.company.clear();
  call_.place.clear();
  call_.person.clear();
  call_.addressKey = 0;
  call_.personKey = 0;
  panel_.SetContactLabel("");
}

DialCommand::Way DialCommand::ChooseWay() {
  DialSettings& settings = state_.settings;
  if (panel_.DevDialTicked()) {
    settings.comPortNumber = kTestModemPort;
    return Way::kModem;
  }
  if (settings.dialMethod == kDialMethodModem && settings.comPortNumber != 0) return Way::kModem;
  const bool lineOpen = settings.tapiLineId > kNoTapiLine;
  return settings.dialMethod == kDialMethodTapi && lineOpen ? Way::kLine : Way::kNone;
}

void DialCommand::PlaceOrEnd() {
  // A call ends the way it was placed, whatever the settings have become.
  if (!panel_.SessionOn() || way_ == Way::kNone) way_ = ChooseWay();
  TellClick();
  switch (way_) {
    case Way::kModem:
      modem_.DialModem(dialString_);
      break;
    case Way::kLine:
      tapi_.DialTAPI(dialString_);
      break;
    case Way::kNone:
      prompts_.Beep();
      panel_.AddStatus("Automatische Anwahl nicht möglich.");
      panel_.AddStatus("Sie müssen zunächst unter Optionen");
      panel_.AddStatus("die CTI-Telefonwahl konfigurieren.");
  }
}

void DialCommand::TellClick() const {
  if (!log_.Listening()) return;
  const char* way = way_ == Way::kModem  ? ", über das Modem"
                    : way_ == Way::kLine ? ", über die Leitung"
                                         : ", kein Wählweg bereit";
  if (panel_.SessionOn()) {
    log_.Tell(LogTopic::kCall, {"Auflegen", way});
    return;
  }
  log_.Tell(LogTopic::kCall, {"Wählen: ",
                              {LogPart::Kind::kNumber, dialString_},
                              panel_.ExternTicked() ? " (extern)" : " (intern)",
                              way});
}

}  // namespace orvane
