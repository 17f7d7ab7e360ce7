#pragma once

#include <memory>
#include <string>

#include "platform/databases/open_database.h"
#include "platform/databases/sqlite/sqlite_file.h"

namespace orvane {

// A SQLite file that speaks the part of the Jet dialect that TranslateJetSql knows.
class SqliteDatabase : public OpenDatabase {
 public:
  explicit SqliteDatabase(std::shared_ptr<SqliteFile> file) : file_(std::move(file)) {}
  std::unique_ptr<Recordset> Execute(std::string_view sql) override;

 private:
  std::shared_ptr<SqliteFile> file_;
};

// Opens the file that stands in for a Jet file. Its password is not looked at: SQLite files have
// none.
std::unique_ptr<OpenDatabase> OpenSqlite(const ConnectionProperties& properties);

}  // namespace orvane
