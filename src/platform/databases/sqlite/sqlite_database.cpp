#include "platform/databases/sqlite/sqlite_database.h"

#include "platform/databases/database_errors.h"
#include "platform/databases/dialect/jet_sql.h"
#include "platform/databases/provider_connection.h"
#include "platform/text/text_tools.h"

namespace orvane {

std::unique_ptr<Recordset> SqliteDatabase::Execute(std::string_view sql) {
  const TranslatedStatement statement = TranslateJetSql(sql);
  if (!statement.indexedSql.empty()) {
    try {
      return file_->Run(statement.indexedSql, statement.dates);
    } catch (const DatabaseError& error) {
      // The other form says what is wrong with the statement, if it is the statement.
      if (error.Number() != kDbErrorSyntax) throw;
    }
  }
  return file_->Run(statement.sql, statement.dates);
}

std::unique_ptr<OpenDatabase> OpenSqlite(const ConnectionProperties& properties,
                                         std::chrono::milliseconds writeLockWait) {
  if (!EqualsIgnoringCase(properties.Provider(), kJetProvider)) ThrowProviderNotFound();
  const DbMode mode = properties.Mode();
  return std::make_unique<SqliteDatabase>(
      std::make_shared<SqliteFile>(properties.Get("Data Source"), mode,
                                   mode == DbMode::kWrite ? writeLockWait : kDatabaseLockWait));
}

}  // namespace orvane
