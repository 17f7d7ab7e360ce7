#include "contact_file.h"

#include <sqlite3.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

#include "contact_schema.h"

namespace orvane {
namespace {

using Database = std::unique_ptr<sqlite3, decltype(&sqlite3_close)>;
using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

Database OpenExisting(const std::filesystem::path& file) {
  sqlite3* handle = nullptr;
  const std::u8string utf8 = file.u8string();
  const int result = sqlite3_open_v2(reinterpret_cast<const char*>(utf8.c_str()), &handle,
                                     SQLITE_OPEN_READWRITE, nullptr);
  Database database(handle, &sqlite3_close);
  if (result != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(handle));
  return database;
}

// Runs one statement with text values for its parameters, null for empty ones; the columns make
// numbers of keys.
void Run(sqlite3* database, const char* sql, std::initializer_list<std::string> values = {}) {
  sqlite3_stmt* handle = nullptr;
  const int prepared = sqlite3_prepare_v2(database, sql, -1, &handle, nullptr);
  const Statement statement(handle, &sqlite3_finalize);
  int index = 0;
  for (const auto& value : values) {
    ++index;
    // Parameters that nothing is bound to are null.
    if (value.empty()) continue;
    sqlite3_bind_text(handle, index, value.c_str(), static_cast<int>(value.size()),
                      SQLITE_TRANSIENT);
  }
  if (prepared != SQLITE_OK || sqlite3_step(handle) != SQLITE_DONE) {
    throw std::runtime_error(sqlite3_errmsg(database));
  }
}

void InsertCompany(sqlite3* database, const SampleCompany& company) {
  Run(database, "INSERT INTO Adressen(AdrID,Firma1,Ort,RawZentrTel) VALUES(?,?,?,?)",
      {std::to_string(company.key), company.name, company.city, HostRawNumber(company.headOffice)});
  for (const auto& person : company.persons) {
    Run(database,
        "INSERT INTO AdrDetail(AdrID,DetID,VName,NName,RawTel1,RawTel2,RawSekTel,RawHandy,"
        "RawHandyprv,RawTelprv) VALUES(?,?,?,?,?,?,?,?,?,?)",
        {std::to_string(company.key), std::to_string(person.key), person.firstName, person.lastName,
         HostRawNumber(person.phone1), HostRawNumber(person.phone2),
         HostRawNumber(person.secretary), HostRawNumber(person.mobile),
         HostRawNumber(person.privateMobile), HostRawNumber(person.privatePhone)});
  }
}

void InsertUsers(sqlite3* database, const std::vector<SampleUser>& users) {
  std::map<std::string, std::string> departmentKeys;
  for (const auto& user : users) {
    const auto next = std::to_string(departmentKeys.size() + 1);
    const auto [department, added] = departmentKeys.emplace(user.department, next);
    if (added) {
      Run(database, "INSERT INTO Grp_Abt(ID,Bez) VALUES(?,?)", {next, user.department});
    }
    Run(database, "INSERT INTO Benutzer(ID,VName,NName,AbtID,Durchwahl) VALUES(?,?,?,?,?)",
        {std::to_string(user.key), user.firstName, user.lastName, department->second,
         user.extension});
  }
}

}  // namespace

void WriteContactFile(const std::filesystem::path& file, const SampleContacts& contacts) {
  std::filesystem::remove(file);
  CreateContactFile(file);
  const Database database = OpenExisting(file);
  Run(database.get(), "BEGIN");
  for (const auto& company : contacts.companies) InsertCompany(database.get(), company);
  InsertUsers(database.get(), contacts.users);
  Run(database.get(), "COMMIT");
}

}  // namespace orvane
