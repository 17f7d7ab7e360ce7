#include "platform/databases/odbc/odbc_access.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/databases/database_errors.h"
#include "platform/databases/dialect/jet_sql.h"
#include "platform/databases/jet/jet_header.h"
#include "platform/databases/odbc/odbc_session.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

constexpr std::string_view kSqlServer = "SQL Server";

// The newest first; FreeTDS is what other systems than Windows have.
constexpr std::array<std::string_view, 8> kServerDrivers{"ODBC Driver 18 for SQL Server",
                                                         "ODBC Driver 17 for SQL Server",
                                                         "ODBC Driver 13 for SQL Server",
                                                         "ODBC Driver 11 for SQL Server",
                                                         "SQL Server Native Client 11.0",
                                                         "SQL Server Native Client 10.0",
                                                         "FreeTDS",
                                                         "SQL Server"};
constexpr std::array<std::string_view, 2> kJetDrivers{"Microsoft Access Driver (*.mdb, *.accdb)",
                                                      "Microsoft Access Driver (*.mdb)"};

template <std::size_t count>
std::string BestDriver(const std::array<std::string_view, count>& wanted,
                       std::string_view database) {
  const std::vector<std::string> installed = InstalledOdbcDrivers();
  for (const std::string_view driver : wanted) {
    if (std::find(installed.begin(), installed.end(), driver) != installed.end()) {
      return std::string(driver);
    }
  }
  throw ErrorOf(DatabaseFailure::kDriverMissing, database);
}

std::string Braced(std::string_view value) {
  std::string result = "{";
  for (const char c : value) result.append(c == '}' ? 2U : 1U, c);
  return result + '}';
}

// One pair of an ODBC connection string. Not every driver takes braces off where none are needed.
std::string Pair(std::string_view name, std::string_view value) {
  const bool plain = value.find_first_of("[]{}();?*=!@") == std::string_view::npos &&
                     !value.starts_with(' ') && !value.ends_with(' ');
  return std::string(name) + "=" + (plain ? std::string(value) : Braced(value)) + ";";
}

// FreeTDS wants a port, which others take behind a comma, under a name of its own. It asks the
// machine itself for the port of a named instance, unless it is told one.
std::string FreeTdsServer(const std::string& server) {
  const std::size_t comma = server.find(',');
  const bool named = server.find('\\') != std::string::npos;
  std::string result = Pair("SERVER", server.substr(0, comma));
  if (comma != std::string::npos) {
    result += Pair("PORT", server.substr(comma + 1));
  } else if (!named) {
    result += "PORT=1433;";
  }
  return result + "TDS_Version=7.4;ClientCharset=UTF-8;";
}

std::string ServerString(const ConnectionProperties& properties) {
  const std::string driver = BestDriver(kServerDrivers, kSqlServer);
  const std::string server = properties.Get("Data Source");
  std::string result = "DRIVER=" + Braced(driver) + ";";
  result += driver == "FreeTDS" ? FreeTdsServer(server)
                                : Pair("SERVER", server) + "TrustServerCertificate=yes;";
  result += Pair("DATABASE", properties.Get("Initial Catalog"));
  if (!properties.Get("Integrated Security").empty()) return result + "Trusted_Connection=yes;";
  return result + Pair("UID", properties.Get("User ID")) + Pair("PWD", properties.Get("Password"));
}

// The same refusals as on systems that read the file themselves.
std::string JetString(const ConnectionProperties& properties) {
  const std::string shownPath = properties.Get("Data Source");
  const std::string password = properties.Get("Jet OLEDB:Database Password");
  CheckJetFile(shownPath, password);
  const std::u8string file = NativePath(shownPath).u8string();
  return "DRIVER=" + Braced(BestDriver(kJetDrivers, "Jet-Datenbanken")) + ";" +
         Pair("DBQ", std::string(file.begin(), file.end())) + Pair("PWD", password);
}

}  // namespace

OdbcAccess SqlServerAccess() {
  return {ServerString,
          [](const ConnectionProperties& properties) {
            return OdbcSubject{properties.Get("User ID"), std::string(kSqlServer)};
          },
          TranslateJetSqlForServer};
}

OdbcAccess JetFileAccess() {
  return {JetString,
          [](const ConnectionProperties& properties) {
            return OdbcSubject{{}, properties.Get("Data Source"), true};
          },
          OrderedJetSql};
}

}  // namespace orvane
