#include "platform/common/sqlite_connection.h"

#include "platform/common/database_errors.h"
#include "platform/common/jet_sql.h"

namespace orvane {

void SqliteConnection::SetMode(DbMode mode) {
  RequireClosed();
  properties_.SetMode(mode);
}

void SqliteConnection::SetCursorLocation(DbCursorLocation /*location*/) {
  RequireClosed();
}

void SqliteConnection::SetProvider(std::string_view provider) {
  RequireClosed();
  properties_.SetProvider(provider);
}

void SqliteConnection::SetProperty(std::string_view name, std::string_view value) {
  RequireClosed();
  properties_.Set(name, value);
}

void SqliteConnection::SetConnectionString(std::string_view text) {
  RequireClosed();
  properties_ = ConnectionProperties::Parse(text);
}

void SqliteConnection::Open() {
  RequireClosed();
  if (!EqualsIgnoringCase(properties_.Provider(), kJetProvider)) ThrowProviderNotFound();
  file_ = std::make_unique<SqliteFile>(properties_.Get("Data Source"), properties_.Mode());
}

std::unique_ptr<Recordset> SqliteConnection::Execute(std::string_view sql) {
  if (!IsOpen()) ThrowObjectClosed();
  const TranslatedStatement statement = TranslateJetSql(sql);
  return file_->Run(statement.sql, statement.dates);
}

void SqliteConnection::RequireClosed() const {
  if (IsOpen()) ThrowObjectOpen();
}

}  // namespace orvane
