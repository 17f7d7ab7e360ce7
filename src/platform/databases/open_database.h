#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/database.h"
#include "platform/databases/connection_properties.h"

namespace orvane {

// What stands behind a connection that is open; it dies with the connection's Close. One that was
// opened with DbMode::kWrite is in a transaction until Commit, and dying before leaves the database
// as it was.
class OpenDatabase {
 public:
  virtual ~OpenDatabase() = default;
  // Runs one statement in the Jet dialect and reads all rows. Throws DatabaseError; a failed
  // statement changed nothing.
  virtual std::unique_ptr<Recordset> Execute(std::string_view sql) = 0;
  // Ends the transaction, which there is. Throws DatabaseError when nothing of it was kept.
  virtual void Commit() = 0;
};

// Opens the database that the properties name. Throws DatabaseError.
using DatabaseOpener = std::function<std::unique_ptr<OpenDatabase>(const ConnectionProperties&)>;

}  // namespace orvane
