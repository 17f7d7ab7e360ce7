#pragma once

#include <chrono>
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
  void Commit() override { file_->Commit(); }

 private:
  std::shared_ptr<SqliteFile> file_;
};

// Opens the file that stands in for a Jet file. Its password is not looked at: SQLite files have
// none. `writeLockWait` is how long one who writes waits for others.
std::unique_ptr<OpenDatabase> OpenSqlite(const ConnectionProperties& properties,
                                         std::chrono::milliseconds writeLockWait = kWriteLockWait);

}  // namespace orvane
