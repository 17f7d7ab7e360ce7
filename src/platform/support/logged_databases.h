#pragma once

#include "platform/database.h"
#include "platform/support_log.h"

namespace orvane {

// Databases whose failures the log hears of, with the numbers and the words of their engines.
class LoggedDatabases : public DatabaseServices {
 public:
  LoggedDatabases(DatabaseServices& databases, SupportLog& log)
      : databases_(databases), log_(log) {}

  std::unique_ptr<DatabaseConnection> NewConnection() override;
  void CompactDatabase(std::string_view source, const std::string& backupPath) override;

 private:
  DatabaseServices& databases_;
  SupportLog& log_;
};

}  // namespace orvane
