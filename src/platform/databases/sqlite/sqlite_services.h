#pragma once

#include <memory>
#include <string_view>

#include "platform/database.h"

namespace orvane {

// Databases in SQLite files.
class SqliteServices : public DatabaseServices {
 public:
  std::unique_ptr<DatabaseConnection> NewConnection() override;
  void CompactDatabase(std::string_view source, std::string_view destination) override;
};

}  // namespace orvane
