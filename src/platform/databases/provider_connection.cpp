#include "platform/databases/provider_connection.h"

#include "platform/databases/database_errors.h"

namespace orvane {

void ProviderConnection::SetMode(DbMode mode) {
  RequireClosed();
  properties_.SetMode(mode);
}

void ProviderConnection::SetCursorLocation(DbCursorLocation /*location*/) {
  RequireClosed();
}

void ProviderConnection::SetProvider(std::string_view provider) {
  RequireClosed();
  properties_.SetProvider(provider);
}

void ProviderConnection::SetProperty(std::string_view name, std::string_view value) {
  RequireClosed();
  properties_.Set(name, value);
}

void ProviderConnection::SetConnectionString(std::string_view text) {
  RequireClosed();
  properties_ = ConnectionProperties::Parse(text);
}

void ProviderConnection::Open() {
  RequireClosed();
  database_ = opener_(properties_);
  inTransaction_ = properties_.Mode() == DbMode::kWrite;
}

std::unique_ptr<Recordset> ProviderConnection::Execute(std::string_view sql) {
  if (!IsOpen()) ThrowObjectClosed();
  return database_->Execute(sql);
}

void ProviderConnection::Commit() {
  if (!IsOpen()) ThrowObjectClosed();
  if (!inTransaction_) return;
  database_->Commit();
  inTransaction_ = false;
}

void ProviderConnection::RequireClosed() const {
  if (IsOpen()) ThrowObjectOpen();
}

}  // namespace orvane
