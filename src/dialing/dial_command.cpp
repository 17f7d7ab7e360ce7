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

void DialCommand::Click(const Moment& clicked) {
  session_.ForgetCanonicalNumber();
  const std::string number = PrepareDialNumber(panel_.NumberText(), state_.settings.countryPrefix);
  if (state_.host.userNumber == 0) {
    log_.Tell(LogTopic::kCall, {"Wählen ohne Wirkung: noch kein Benutzer"});
    return;
  }
  const bool places = !session_.On();
  if (places) Prepare(number);
  PlaceOrEnd(clicked);
  if (places) redial_.Record(panel_.NumberText());
}

void DialCommand::Prepare(const std::string& number) {
  if (panel_.HistoryShown()) panel_.ToggleHistory();
  panel_.ClearStatus();
  ChooseExtern(panel_, number);
  const DialSettings& settings = state_.settings;
  const bool external = panel_.ExternTicked();
  dialString_ = Trim(external ? settings.outsideLineExt : settings.outsideLineInt) +
                FilterChars(number, "0123456789*#", true);
  session_.SetNumber(
      external ? NormalizeNumber(panel_.NumberText(), settings.countryPrefix) : std::string(),
      FilterChars(number, kDigits, true), settings.countryPrefix);
}

std::optional<Session::Way> DialCommand::ChooseWay() {
  DialSettings& settings = state_.settings;
  if (panel_.DevDialTicked()) {
    settings.comPortNumber = kTestModemPort;
    return Session::Way::kModem;
  }
  if (settings.dialMethod == kDialMethodModem && settings.comPortNumber != 0) {
    return Session::Way::kModem;
  }
  const bool lineOpen = settings.tapiLineId > kNoTapiLine;
  if (settings.dialMethod == kDialMethodTapi && lineOpen) return Session::Way::kLine;
  return std::nullopt;
}

// A call ends the way it was placed, whatever the settings have become.
void DialCommand::PlaceOrEnd(const Moment& clicked) {
  const std::optional<Session::Way> way = session_.On() ? session_.PlacedBy() : ChooseWay();
  TellClick(way);
  if (way == Session::Way::kModem) {
    modem_.DialModem(dialString_, clicked);
  } else if (way == Session::Way::kLine) {
    tapi_.DialTAPI(dialString_, clicked);
  } else {
    prompts_.Beep();
    panel_.AddStatus("Automatische Anwahl nicht möglich.");
    panel_.AddStatus("Sie müssen zunächst unter Optionen");
    panel_.AddStatus("die CTI-Telefonwahl konfigurieren.");
  }
}

void DialCommand::TellClick(std::optional<Session::Way> way) const {
  if (!log_.Listening()) return;
  const char* by = way == Session::Way::kModem  ? ", über das Modem"
                   : way == Session::Way::kLine ? ", über die Leitung"
                                                : ", kein Wählweg bereit";
  if (session_.On()) {
    log_.Tell(LogTopic::kCall, {"Auflegen", by});
    return;
  }
  log_.Tell(LogTopic::kCall, {"Wählen: ",
                              {LogPart::Kind::kNumber, dialString_},
                              panel_.ExternTicked() ? " (extern)" : " (intern)",
                              by});
}

}  // namespace orvane
