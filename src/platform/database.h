#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace orvane {

// Numbers that the providers report and that the program's rules look at.
inline constexpr std::int32_t kDbErrorFailed =
    -2147467259;  // 0x80004005: cannot open, locked, constraint
inline constexpr std::int32_t kDbErrorSyntax = -2147217900;  // 0x80040E14: the statement is refused
inline constexpr std::int32_t kDbErrorLogin = -2147217843;  // 0x80040E4D: login or password refused
inline constexpr std::int32_t kDbErrorConflict = -2147217887;  // 0x80040E21
inline constexpr std::int32_t kDbErrorTimeout = -2147217871;   // 0x80040E31: took too long
inline constexpr std::int32_t kDbErrorObjectOpen = 3705;  // not allowed while the object is open
inline constexpr std::int32_t kDbErrorObjectClosed =
    3704;  // not allowed while the object is closed
inline constexpr std::int32_t kDbErrorProviderNotFound = 3706;  // no such provider
inline constexpr std::int32_t kDbErrorNoCurrentRow = 3021;      // at the end, no current row
inline constexpr std::int32_t kDbErrorNoSuchField = 3265;       // no such field or property

enum class DbMode : int { kUnknown = 0, kRead = 1, kWrite = 2, kReadWrite = 3 };
enum class DbCursorLocation : int { kServer = 2, kClient = 3 };

// One field: null, a whole number, a floating-point number (also a date: days since 1899-12-30) or
// UTF-8 text.
using DbValue = std::variant<std::monostate, std::int64_t, double, std::string>;

// The rows of a query, read forward. With a client-side cursor the rows are complete when Execute
// returns and outlive the connection's Close.
class Recordset {
 public:
  virtual ~Recordset() = default;
  virtual bool AtEnd() const = 0;
  // Throws DatabaseError kDbErrorNoCurrentRow when already at the end.
  virtual void MoveNext() = 0;
  // By column name, not case-sensitive. Throws kDbErrorNoCurrentRow or kDbErrorNoSuchField.
  virtual DbValue Field(std::string_view name) const = 0;
  // By position, from 0.
  virtual DbValue Field(int index) const = 0;
};

// What the logic needs of an ADO connection. Properties are set while it is closed.
class DatabaseConnection {
 public:
  virtual ~DatabaseConnection() = default;

  virtual void SetMode(DbMode mode) = 0;
  // Handed over as it is stated for the host's databases; every cursor is client-side here.
  virtual void SetCursorLocation(DbCursorLocation location) = 0;
  virtual void SetProvider(std::string_view provider) = 0;
  // "Data Source" (a path with "\" or a server), "Jet OLEDB:Database Password", "Password",
  // "User ID", "Initial Catalog", "Integrated Security", "Persist Security Info".
  virtual void SetProperty(std::string_view name, std::string_view value) = 0;
  // Replaces provider, mode and properties by what the text says: "name=value" pairs parted by ";".
  virtual void SetConnectionString(std::string_view text) = 0;
  // After Open: provider, mode and properties, enough to open again with SetConnectionString.
  virtual std::string ConnectionString() const = 0;

  virtual bool IsOpen() const = 0;
  // Throws DatabaseError: file missing, locked, damaged, not writable in a write mode, server not
  // found, login refused. Waits at most a second for another process's lock.
  //
  // With DbMode::kWrite a transaction begins, which ends with Commit or Close. As long as it goes
  // on, the connection has a SQLite file for itself: opening waits at most ten seconds for all
  // other processes, readers included. Other engines let others in meanwhile.
  virtual void Open() = 0;
  // Runs one statement in the Jet dialect. Throws DatabaseError; a failed statement changed
  // nothing, and a transaction goes on. Only a failure of the storage may take the transaction
  // along: whatever comes then fails too, Commit included, and nothing is kept.
  virtual std::unique_ptr<Recordset> Execute(std::string_view sql) = 0;
  // Makes permanent what the transaction changed, and lets others in. After that the connection is
  // like one of another mode, where each statement is by itself and Commit does nothing. Throws
  // DatabaseError when nothing was kept; then there is only Close left.
  virtual void Commit() = 0;
  // Leaves the database as it was before a transaction that was not committed. Closing a closed
  // connection does nothing.
  virtual void Close() = 0;
};

// Makes connections, and compacts files.
class DatabaseServices {
 public:
  virtual ~DatabaseServices() = default;
  virtual std::unique_ptr<DatabaseConnection> NewConnection() = 0;
  // Replaces the file `backupPath` (as the program composes it) by a copy of the database and then
  // makes the database smaller where it lies: it stays the same file. `source` is a connection
  // string with "Data Source" and "Jet OLEDB:Database Password". Other processes are kept out
  // meanwhile and waited for as by Open for writing. Throws DatabaseError; the database is then as
  // it was, and so is the backup unless its copy was complete.
  virtual void CompactDatabase(std::string_view source, const std::string& backupPath) = 0;
};

}  // namespace orvane
