#pragma once

#include <memory>
#include <string_view>

#include "platform/database.h"
#include "platform/databases/open_database.h"

namespace orvane {

// How this system opens what SQLite does not keep.
struct DatabaseEngines {
  DatabaseOpener jet;     // files in Jet's own format
  DatabaseOpener server;  // the database server
};

// The databases that hosts have. The provider says whether it is a server or a file, and a file's
// first bytes say who keeps it, so that SQLite and Jet files of the same name are interchangeable.
class HostDatabases : public DatabaseServices {
 public:
  explicit HostDatabases(DatabaseEngines engines) : engines_(std::move(engines)) {}

  std::unique_ptr<DatabaseConnection> NewConnection() override;
  // Only SQLite files; others are refused with kDbErrorFailed.
  void CompactDatabase(std::string_view source, const std::string& backupPath) override;

 private:
  DatabaseEngines engines_;
};

}  // namespace orvane
