#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/databases/connection_properties.h"
#include "platform/databases/open_database.h"

namespace orvane {

inline constexpr std::string_view kJetProvider = "Microsoft.Jet.OLEDB.4.0";
inline constexpr std::string_view kSqlServerProvider = "SQLOLEDB.1";

// Keeps what a connection is told while it is closed, and leaves opening to the opener. Every
// cursor is client-side.
class ProviderConnection : public DatabaseConnection {
 public:
  explicit ProviderConnection(DatabaseOpener opener) : opener_(std::move(opener)) {}

  void SetMode(DbMode mode) override;
  void SetCursorLocation(DbCursorLocation location) override;
  void SetProvider(std::string_view provider) override;
  void SetProperty(std::string_view name, std::string_view value) override;
  void SetConnectionString(std::string_view text) override;
  std::string ConnectionString() const override { return properties_.ToString(); }

  bool IsOpen() const override { return database_ != nullptr; }
  void Open() override;
  std::unique_ptr<Recordset> Execute(std::string_view sql) override;
  void Commit() override;
  void Close() override { database_.reset(); }

 private:
  void RequireClosed() const;

  DatabaseOpener opener_;
  ConnectionProperties properties_;
  std::unique_ptr<OpenDatabase> database_;
  bool inTransaction_ = false;
};

}  // namespace orvane
