#include "journal/journal_statements.h"

#include "platform/text/text_tools.h"

namespace orvane {
namespace {

constexpr std::size_t kMaxCompanyCharacters = 99;
constexpr std::size_t kMaxPlaceCharacters = 60;
constexpr std::size_t kMaxPersonCharacters = 99;

std::string TableOf(CallDirection direction) {
  return direction == CallDirection::kOutgoing ? "o" : "i";
}

std::string Shortened(const std::string& text, std::size_t characters) {
  return Trim(FirstCharacters(text, characters));
}

}  // namespace

NewCall WithStoredTexts(NewCall call) {
  if (call.number.empty()) {
    call.company = "<Keine Nummer>";
    call.place.clear();
  } else if (call.person.empty()) {
    call.person = "Unbekannt";
  }
  return call;
}

std::string MaxIdStatement(CallDirection direction) {
  return "SELECT Max(ID) FROM " + TableOf(direction);
}

std::string InsertStatement(const NewCall& call, std::int64_t id) {
  std::string columns = "INSERT INTO " + TableOf(call.direction) + " (ID,Ext,Zeit,Firma,Ort,Person";
  std::string tail;
  if (!call.number.empty()) {
    columns += ",Nr";
    tail += ",'" + call.number + "'";
    if (call.addressKey > 0) {
      columns += ",AdrID";
      tail += "," + std::to_string(call.addressKey);
    }
    if (call.personKey > 0) {
      columns += ",DUID";
      tail += "," + std::to_string(call.personKey);
    }
  }
  return columns + ") VALUES (" + std::to_string(id) + "," + (call.external ? "-1" : "0") + ",#" +
         call.startText + "#,'" + Shortened(call.company, kMaxCompanyCharacters) + "','" +
         Shortened(call.place, kMaxPlaceCharacters) + "','" +
         Shortened(call.person, kMaxPersonCharacters) + "'" + tail + ")";
}

std::string TrimStatement(CallDirection direction, std::int64_t id) {
  return "DELETE FROM " + TableOf(direction) + " WHERE ID<" +
         std::to_string(id - (kJournalRows - 1));
}

std::string DurationsStatement(CallDirection direction) {
  return "SELECT Zeit,Nr,Dauer FROM " + TableOf(direction);
}

std::string UpdateStatement(const EndedCall& call) {
  return "UPDATE " + TableOf(call.direction) + " Set Zeit=#" + call.connectText + "#, Dauer='" +
         Trim(call.duration) + "' WHERE Zeit=#" + call.startText + "#";
}

}  // namespace orvane
