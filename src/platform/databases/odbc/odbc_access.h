#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/databases/connection_properties.h"
#include "platform/databases/odbc/odbc_failures.h"

namespace orvane {

// How one kind of database is reached through ODBC.
struct OdbcAccess {
  // Throws DatabaseError kDriverMissing when there is no driver for it, and what is wrong with a
  // file.
  std::function<std::string(const ConnectionProperties&)> connectionString;
  std::function<OdbcSubject(const ConnectionProperties&)> subject;
  // A statement in the Jet dialect as the database wants it. Throws DatabaseError kDbErrorSyntax.
  std::function<std::string(std::string_view)> translate;
};

// The database server with the best of the installed drivers.
OdbcAccess SqlServerAccess();
// Files in Jet's own format with the Access driver, which there is on Windows.
OdbcAccess JetFileAccess();

}  // namespace orvane
