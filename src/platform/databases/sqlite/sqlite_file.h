#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/database.h"
#include "platform/errors.h"

struct sqlite3;

namespace orvane {

// The longest wait for other processes' locks: of Open as a whole, and of each statement.
inline constexpr std::chrono::milliseconds kDatabaseLockWait{1000};
// The same of what needs the file for itself.
inline constexpr std::chrono::milliseconds kWriteLockWait{10'000};

struct SqliteCloser {
  void operator()(sqlite3* database) const;
};
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;

// An open SQLite file. The file may come from anywhere: its triggers and views do not run, and a
// statement reaches nothing but its tables.
class SqliteFile {
 public:
  // Opens an existing file; `shownPath` is the path as the program composed it. In the modes that
  // write, a first page is written and rolled back, so that a file or folder that cannot be written
  // to is known now and not when a call has to be saved. With kWrite that is the beginning of a
  // transaction that keeps all others out until Commit; what was not committed dies with the
  // object. kUnknown writes where it can and reads otherwise. Throws DatabaseError kDbErrorFailed.
  SqliteFile(const std::string& shownPath, DbMode mode,
             std::chrono::milliseconds lockWait = kDatabaseLockWait);
  // Serves a database in memory, which is filled already, in the place of the file.
  SqliteFile(const std::string& shownPath, SqliteHandle filled);
  ~SqliteFile();
  SqliteFile(const SqliteFile&) = delete;
  SqliteFile& operator=(const SqliteFile&) = delete;

  // Runs one statement in SQLite's dialect, `values` bound to its "?", and reads all rows. Throws
  // DatabaseError; a failed statement changed nothing.
  std::unique_ptr<Recordset> Run(const std::string& sql, const std::vector<double>& values);

  // Throws DatabaseError when nothing of the transaction was kept.
  void Commit();

  // Keeps others out until Compact or the end of the object.
  void KeepOthersOut();
  // Copies the whole file into the empty one `file`, which the user knows as `shownCopy`. Throws
  // DatabaseError, also when this file is damaged: it must not take the place of an older copy.
  void CopyInto(const std::filesystem::path& file, const std::string& shownCopy);
  // Gives back the room that is not used. Throws DatabaseError; the file is then as it was.
  void Compact();

 private:
  void Connect(const std::string& utf8Path, DbMode mode);
  void Harden();
  void CheckSchema();
  void PrepareWriting(DbMode mode);
  void RequireTransaction() const;
  void CheckPages();
  void RestrictStatements();
  void Command(const char* sql);
  static int WaitForLock(void* self, int count);
  [[noreturn]] void ThrowFailure(int code) const;
  DatabaseError Failure(int code) const;

  std::string shownPath_;
  std::chrono::steady_clock::time_point lockDeadline_;
  SqliteHandle database_;
  bool inTransaction_ = false;
};

}  // namespace orvane
