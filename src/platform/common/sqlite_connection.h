#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/common/connection_properties.h"
#include "platform/common/sqlite_file.h"
#include "platform/database.h"

namespace orvane {

inline constexpr std::string_view kJetProvider = "Microsoft.Jet.OLEDB.4.0";

// Stands for a Jet connection to a file that is kept by SQLite. Speaks the part of the Jet dialect
// that TranslateJetSql knows; every cursor is client-side. The file's password is not looked at.
class SqliteConnection : public DatabaseConnection {
 public:
  void SetMode(DbMode mode) override;
  void SetCursorLocation(DbCursorLocation location) override;
  void SetProvider(std::string_view provider) override;
  void SetProperty(std::string_view name, std::string_view value) override;
  void SetConnectionString(std::string_view text) override;
  std::string ConnectionString() const override { return properties_.ToString(); }

  bool IsOpen() const override { return file_ != nullptr; }
  void Open() override;
  std::unique_ptr<Recordset> Execute(std::string_view sql) override;
  void Close() override { file_.reset(); }

 private:
  void RequireClosed() const;

  ConnectionProperties properties_;
  std::unique_ptr<SqliteFile> file_;
};

}  // namespace orvane
