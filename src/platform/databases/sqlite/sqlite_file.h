#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/errors.h"

struct sqlite3;

namespace orvane {

// The rule for every wait for another process's lock: Open as a whole and each statement.
inline constexpr std::chrono::milliseconds kDatabaseLockWait{1000};

struct SqliteCloser {
  void operator()(sqlite3* database) const;
};
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;

// An open SQLite file. The file may come from anywhere: its triggers and views do not run, and a
// statement reaches nothing but its tables.
class SqliteFile {
 public:
  // Opens an existing file; `shownPath` is the path as the program composed it. In the modes that
  // write, a write lock is taken and a first page is written and rolled back, so that a file or
  // folder that cannot be written to is known now and not when a call has to be saved.
  // kUnknown writes where it can and reads otherwise. Throws DatabaseError kDbErrorFailed.
  SqliteFile(const std::string& shownPath, DbMode mode);
  // Serves a database in memory, which is filled already, in the place of the file.
  SqliteFile(const std::string& shownPath, SqliteHandle filled);
  ~SqliteFile();
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  // Runs one statement in SQLite's dialect, `values` bound to its "?", and reads all rows. Throws
  // DatabaseError; a failed statement changed nothing.
  std::unique_ptr<Recordset> Run(const std::string& sql, const std::vector<double>& values);

  // Writes a compact copy; the file must not exist. What was written of a failed copy stays behind.
  void CopyInto(const std::string& utf8Path);
  // Returns when the file's content is on the disk, which a fresh copy's is not by itself.
  void SyncToDisk();

 private:
  void Connect(const std::string& utf8Path, DbMode mode);
  void Harden();
  void CheckSchema();
  void PrepareWriting();
  void RestrictStatements();
  void Command(const char* sql);
  static int WaitForLock(void* self, int count);
  [[noreturn]] void ThrowFailure(int code) const;
  DatabaseError Failure(int code) const;

  std::string shownPath_;
  std::chrono::steady_clock::time_point lockDeadline_;
  SqliteHandle database_;
};

}  // namespace orvane
