#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/database.h"
#include "platform/databases/connection_properties.h"

namespace orvane {

// What stands behind a connection that is open; it dies with the connection's Close.
class OpenDatabase {
 public:
  virtual ~OpenDatabase() = default;
  // Runs one statement in the Jet dialect and reads all rows. Throws DatabaseError; a failed
  // statement changed nothing.
  virtual std::unique_ptr<Recordset> Execute(std::string_view sql) = 0;
};

// Opens the database that the properties name. Throws DatabaseError.
using DatabaseOpener = std::function<std::unique_ptr<OpenDatabase>(const ConnectionProperties&)>;

}  // namespace orvane
