#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>

#include "platform/database.h"
#include "platform/databases/sqlite/sqlite_file.h"

namespace orvane {

// Databases in SQLite files.
class SqliteServices : public DatabaseServices {
 public:
  // `writeLockWait` is how long one who needs a file for himself waits for others.
  explicit SqliteServices(std::chrono::milliseconds writeLockWait = kWriteLockWait)
      : writeLockWait_(writeLockWait) {}

  std::unique_ptr<DatabaseConnection> NewConnection() override;
  void CompactDatabase(std::string_view source, const std::string& backupPath) override;

 private:
  std::chrono::milliseconds writeLockWait_;
};

}  // namespace orvane
