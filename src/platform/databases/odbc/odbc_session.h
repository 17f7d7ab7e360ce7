#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/database.h"
#include "platform/databases/odbc/odbc_failures.h"

namespace orvane {

// The names of the installed ODBC drivers.
std::vector<std::string> InstalledOdbcDrivers();

// One connection through the ODBC driver manager. Every call may wait for the server; calls come
// from one thread at a time, except Cancel.
class OdbcSession {
 public:
  // Connects. Throws DatabaseError.
  OdbcSession(const std::string& connectionString, OdbcSubject subject);
  ~OdbcSession();
  OdbcSession(const OdbcSession&) = delete;
  OdbcSession& operator=(const OdbcSession&) = delete;

  // Runs one statement in the server's own dialect and reads all rows. Throws DatabaseError.
  std::unique_ptr<Recordset> Execute(const std::string& sql);
  // From here on what is executed becomes permanent with Commit, or not at all when the session
  // ends before. Throws DatabaseError.
  void Begin();
  // Throws DatabaseError. Each statement is by itself again.
  void Commit();
  // Asks the server to give up the statement that another thread is running here, if any.
  void Cancel();

 private:
  struct Handles;
  class Statement;

  OdbcSubject subject_;
  std::unique_ptr<Handles> handles_;
  bool inTransaction_ = false;
  std::mutex runningMutex_;
  Statement* running_ = nullptr;
};

}  // namespace orvane
