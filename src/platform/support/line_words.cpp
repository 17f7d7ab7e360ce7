#include "platform/support/line_words.h"

#include <iterator>

#include "platform/support/error_text.h"
#include "platform/tapi_control.h"

namespace orvane {
namespace {

struct Word {
  std::int32_t number;
  const char* text;
};

constexpr Word kStates[] = {{kLineCallIdle, "frei"},
                            {kLineCallDialing, "wählt"},
                            {kLineCallRingback, "es läutet"},
                            {kLineCallBusy, "besetzt"},
                            {kLineCallConnected, "verbunden"},
                            {kLineCallProceeding, "wird vermittelt"},
                            {kLineCallDisconnected, "getrennt"},
                            // What only some drivers tell.
                            {0x8, "Wählton"},
                            {0x80, "Hinweiston"},
                            {0x400, "gehalten"}};

// Why a call was disconnected, as the line interface numbers it.
constexpr Word kReasons[] = {
    {0x4, "abgewiesen"},        {0x40, "niemand nahm ab"},
    {0x80, "ungültige Nummer"}, {0x100, "nicht erreichbar"},
    {0x200, "Netz überlastet"}, {0x400, "die Gegenstelle ist kein Telefon"},
    {0x800, "Grund unbekannt"}, {0x1000, "kein Wählton"}};

template <std::size_t Size>
const char* Find(const Word (&words)[Size], std::int32_t number) {
  for (const Word& word : words) {
    if (word.number == number) return word.text;
  }
  return nullptr;
}

std::string Meaning(const LineMessage& message) {
  const auto& [result, function, code, asked] = message;
  if (result == "OUTOFSERVICE") return "Ausfall: die Leitungen sind außer Betrieb";
  if (result == "INSERVICE") return "Leitungen sind wieder oder neu in Betrieb";
  if (result == "FAILED") {
    return std::string(function == "TapiLineDrop" ? "das Trennen" : "das Wählen") +
           " ist gescheitert: " + ErrorText(code);
  }
  if (result == "REFUSED") {
    const char* const reason = Find(kReasons, code);
    return std::string("der Anruf kam nicht zustande") + (reason ? std::string(", ") + reason : "");
  }
  if (function == "TapiLineInit") return "bereit";
  if (function == "TapiLineOpen") return "geöffnet";
  if (function == "TapiLineClose")
    return asked ? "geschlossen" : "Ausfall: die Leitung wurde geschlossen";
  return "Meldung";
}

}  // namespace

std::string LineMessageText(const LineMessage& message) {
  return Meaning(message) + " (" + message.result + " " + message.function + " " +
         std::to_string(message.code) + ")";
}

std::string CallStateText(std::int32_t state) {
  const char* const name = Find(kStates, state);
  return name == nullptr ? HexText(state) : std::string(name) + " (" + HexText(state) + ")";
}

}  // namespace orvane
