#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/common/database_errors.h"
#include "platform/database.h"

namespace orvane {

// The names of the installed ODBC drivers.
std::vector<std::string> InstalledOdbcDrivers();

// One connection through the ODBC driver manager. Every call may wait for the server; calls come
// from one thread at a time.
class OdbcSession {
 public:
  // What failures are about.
  struct Subject {
    std::string user;      // whom the server refuses
    std::string database;  // what a driver is missing for
    bool isFile = false;   // a file refuses its password and not a user
  };

  // Connects. Throws DatabaseError.
  OdbcSession(const std::string& connectionString, Subject subject);
  ~OdbcSession();
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;

  // Runs one statement in the server's own dialect and reads all rows. Throws DatabaseError.
  std::unique_ptr<Recordset> Execute(const std::string& sql);

 private:
  struct Handles;

  [[noreturn]] void ThrowFailure(short handleType, void* handle, bool connecting) const;

  Subject subject_;
  std::unique_ptr<Handles> handles_;
};

}  // namespace orvane
