#include "platform/databases/host_databases.h"

#include <string>

#include "platform/databases/database_errors.h"
#include "platform/databases/jet/jet_header.h"
#include "platform/databases/provider_connection.h"
#include "platform/databases/sqlite/sqlite_database.h"
#include "platform/databases/sqlite/sqlite_reading.h"
#include "platform/databases/sqlite/sqlite_services.h"
#include "platform/text/native_path.h"
#include "platform/text/text_tools.h"

namespace orvane {
namespace {

bool IsJetFile(const ConnectionProperties& properties) {
  const std::string file = properties.Get("Data Source");
  return !file.empty() && JetHeader::Of(ReadThroughSqlite(NativePath(file), JetHeader::kBytes));
}

}  // namespace

std::unique_ptr<DatabaseConnection> HostDatabases::NewConnection() {
  return std::make_unique<ProviderConnection>(
      [engines = engines_](const ConnectionProperties& properties) {
        if (EqualsIgnoringCase(properties.Provider(), kSqlServerProvider)) {
          return engines.server(properties);
        }
        if (!EqualsIgnoringCase(properties.Provider(), kJetProvider)) ThrowProviderNotFound();
        return IsJetFile(properties) ? engines.jet(properties) : OpenSqlite(properties);
      });
}

void HostDatabases::CompactDatabase(std::string_view source, const std::string& backupPath) {
  const ConnectionProperties properties = ConnectionProperties::Parse(source);
  if (IsJetFile(properties))
    throw ErrorOf(DatabaseFailure::kJetReadOnly, properties.Get("Data Source"));
  SqliteServices().CompactDatabase(source, backupPath);
}

}  // namespace orvane
