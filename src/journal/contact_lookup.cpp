#include "journal/contact_lookup.h"

#include <stdexcept>
#include <string>

#include "app/attempt.h"
#include "app/host_paths.h"
#include "app/number_text.h"
#include "journal/field_access.h"
#include "journal/open_failure.h"
#include "platform/errors.h"

namespace orvane {
namespace {

// A prepared number of at most this many characters is compared with the dialled digits only.
constexpr std::size_t kMaxShortNumberCharacters = 5;

constexpr const char* kNumberColumns[] = {
    "AdrDetail.RawTel1",     "AdrDetail.RawTel2",   "AdrDetail.RawSekTel", "AdrDetail.RawHandy",
    "AdrDetail.RawHandyprv", "AdrDetail.RawTelprv", "Adressen.RawZentrTel"};

std::int32_t KeyField(const Recordset& rows, std::string_view name) {
  return RoundToInt32(static_cast<double>(IntegerOf(rows.Field(name))));
}

std::string NumberCondition(const CurrentCall& call) {
  const std::string& dialled = call.lastDialedDigits;
  const std::string& prepared = call.canonicalNumber;
  const std::string test = prepared.size() <= kMaxShortNumberCharacters
                               ? "='" + dialled + "'"
                               : " IN('" + dialled + "','" + prepared + "')";
  std::string condition;
  for (const char* column : kNumberColumns) {
    if (!condition.empty()) condition += " OR ";
    condition += column + test;
  }
  return condition;
}

std::string LastFirst(const std::string& lastName, const std::string& firstName) {
  return firstName.empty() ? lastName : lastName + ", " + firstName;
}

// The person of the first row, unless the next row is another person.
void TakePerson(Recordset& rows, CurrentCall& call) {
  std::int32_t key = KeyField(rows, "DetID");
  if (key <= 0) return;
  Attempt([&] { call.person = LastFirst(TextField(rows, "NName"), TextField(rows, "VName")); });
  Attempt([&] {
    rows.MoveNext();
    const std::int32_t next = KeyField(rows, "DetID");
    if (next < 1 || next == key) return;
    call.person = "Nummer existiert mehrfach";
    key = 0;
  });
  call.personKey = key;
}

void TakeContact(Recordset& rows, CurrentCall& call) {
  if (rows.AtEnd()) {
    call.addressKey = 0;
    call.company = "<Nicht gelistet>";
    call.place.clear();
    call.person = "Unbekannt";
    return;
  }
  Attempt([&] { call.addressKey = KeyField(rows, "AdrID"); });
  Attempt([&] { call.company = TextField(rows, "Firma1"); });
  Attempt([&] { call.place = TextField(rows, "Ort"); });
  Attempt([&] { TakePerson(rows, call); });
}

void TakeUser(Recordset& rows, CurrentCall& call) {
  call.addressKey = 0;
  call.company = "Intern";
  if (rows.AtEnd()) {
    call.personKey = 0;
    call.place.clear();
    call.person = "N.N.";
    return;
  }
  Attempt([&] { call.personKey = KeyField(rows, "ID"); });
  Attempt([&] { call.place = TextField(rows, "Bez"); });
  Attempt([&] {
    const std::string lastName = TextField(rows, "NName");
    call.person = lastName.empty() ? "N.N." : LastFirst(lastName, TextField(rows, "VName"));
  });
}

void SetHostProperties(DatabaseConnection& connection, const HostEnvironment& host) {
  if (host.useSqlServer) {
    connection.SetProvider("SQLOLEDB.1");
    connection.SetProperty("Data Source", host.sqlServerName);
    connection.SetProperty("Initial Catalog", "Talmix");
    if (!host.sqlPassword.empty() || !host.sqlLogin.empty()) {
      connection.SetProperty("User ID", host.sqlLogin);
    } else {
      connection.SetProperty("Integrated Security", "SSPI");
    }
  } else {
    connection.SetProvider("Microsoft.Jet.OLEDB.4.0");
    connection.SetProperty("Data Source", host.dataPath + "CONTACT.FDB");
    connection.SetProperty("Jet OLEDB:Database Password", kHostFilePassword);
  }
  connection.SetCursorLocation(DbCursorLocation::kClient);
  connection.SetProperty("Persist Security Info", "False");
}

}  // namespace

bool ReopenDB(Prompts& prompts, ProgramState& state) {
  DatabaseState& databases = state.databases;
  if (!databases.host) throw std::logic_error("no host connection");
  DatabaseConnection& connection = *databases.host;
  try {
    if (connection.IsOpen()) return true;
    if (databases.hostConnectionString.empty()) {
      SetHostProperties(connection, state.host);
    } else {
      connection.SetConnectionString(databases.hostConnectionString);
    }
    // The stored text does not keep the password.
    if (!state.host.sqlPassword.empty()) {
      connection.SetProperty("Password", state.host.sqlPassword);
    }
    connection.Open();
    databases.hostConnectionString = connection.ConnectionString();
    return true;
  } catch (const PlatformError& error) {
    ShowOpenFailure(prompts, error, "ReopenDB", "Datenbank konnte nicht initialisiert werden!");
    return false;
  }
}

void ResolveNumber(Prompts& prompts, ProgramState& state, CurrentCall& call) {
  if (!ReopenDB(prompts, state)) return;
  call.personKey = 0;
  Attempt([&] {
    const auto rows = state.databases.host->Execute(
        "SELECT Adressen.AdrID,Adressen.Firma1,Adressen.Ort,AdrDetail.DetID,AdrDetail.VName,"
        "AdrDetail.NName FROM Adressen LEFT JOIN AdrDetail ON Adressen.AdrID=AdrDetail.AdrID "
        "WHERE " +
        NumberCondition(call));
    TakeContact(*rows, call);
  });
  state.databases.host->Close();
}

void ResolveExtension(Prompts& prompts, ProgramState& state, CurrentCall& call) {
  if (!ReopenDB(prompts, state)) return;
  Attempt([&] {
    const auto rows = state.databases.host->Execute(
        "SELECT Benutzer.ID,Benutzer.VName,Benutzer.NName,Grp_Abt.Bez FROM Grp_Abt INNER JOIN "
        "Benutzer ON Grp_Abt.ID=Benutzer.AbtID WHERE Durchwahl='" +
        call.lastDialedDigits + "'");
    TakeUser(*rows, call);
  });
  state.databases.host->Close();
}

}  // namespace orvane
