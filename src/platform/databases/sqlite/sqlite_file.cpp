#include "platform/databases/sqlite/sqlite_file.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <thread>

#include "platform/databases/database_errors.h"
#include "platform/databases/memory_recordset.h"
#include "platform/databases/sqlite/sqlite_errors.h"
#include "platform/databases/sqlite/sqlite_functions.h"
#include "platform/databases/sqlite/sqlite_path.h"
#include "platform/errors.h"
#include "platform/text/native_path.h"

namespace orvane {
namespace {

constexpr std::chrono::milliseconds kLockRetry{5};
// The smallest page, so nothing shorter is a database; SQLite would take an empty file for one.
constexpr std::uintmax_t kSmallestFileBytes = 512;

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

// The file's absolute path. Throws unless it is a file that could be a database.
std::string FindFile(const std::string& shownPath) {
  if (shownPath.empty()) throw ErrorOf(DatabaseFailure::kFileMissing, shownPath);
  std::error_code error;
  const std::filesystem::path path = std::filesystem::absolute(NativePath(shownPath), error);
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (status.type() == std::filesystem::file_type::not_found)
    throw ErrorOf(DatabaseFailure::kFileMissing, shownPath);
  if (!std::filesystem::status_known(status))
    throw ErrorOf(DatabaseFailure::kFileUnreadable, shownPath);
  if (status.type() != std::filesystem::file_type::regular ||
      std::filesystem::file_size(path, error) < kSmallestFileBytes) {
    throw ErrorOf(DatabaseFailure::kFileNotRecognised, shownPath);
  }
  return SqlitePath(path);
}

struct Limit {
  int id;
  int value;
};
constexpr std::array<Limit, 9> kLimits{{{SQLITE_LIMIT_LENGTH, 1'000'000},
                                        {SQLITE_LIMIT_SQL_LENGTH, 1'000'000},
                                        {SQLITE_LIMIT_COLUMN, 255},
                                        {SQLITE_LIMIT_EXPR_DEPTH, 100},
                                        {SQLITE_LIMIT_COMPOUND_SELECT, 2},
                                        {SQLITE_LIMIT_VDBE_OP, 25'000},
                                        {SQLITE_LIMIT_FUNCTION_ARG, 4},
                                        {SQLITE_LIMIT_LIKE_PATTERN_LENGTH, 255},
                                        {SQLITE_LIMIT_TRIGGER_DEPTH, 1}}};

// Lets a statement read and change the file's own tables and nothing else.
int Authorize(void* /*unused*/, int action, const char* table, const char* /*unused*/,
              const char* /*unused*/, const char* /*unused*/) {
  const std::string_view name = table != nullptr ? table : "";
  const bool internal = name.starts_with("sqlite_") || name.starts_with("pragma_");
  switch (action) {
    case SQLITE_SELECT:
    case SQLITE_FUNCTION:
      return SQLITE_OK;
    case SQLITE_READ:
    case SQLITE_INSERT:
    case SQLITE_UPDATE:
    case SQLITE_DELETE:
      return internal ? SQLITE_DENY : SQLITE_OK;
    default:
      return SQLITE_DENY;
  }
}

// Lets the program's own statements do everything for as long as it lives.
class Unrestricted {
 public:
  explicit Unrestricted(sqlite3* database) : database_(database) {
    sqlite3_set_authorizer(database_, nullptr, nullptr);
  }
  ~Unrestricted() { sqlite3_set_authorizer(database_, Authorize, nullptr); }
  Unrestricted(const Unrestricted&) = delete;
  Unrestricted& operator=(const Unrestricted&) = delete;

 private:
  sqlite3* database_;
};

// What a copy fails with, or SQLITE_OK.
int CopyPages(sqlite3* from, sqlite3* to) {
  sqlite3_backup* const backup = sqlite3_backup_init(to, "main", from, "main");
  if (backup == nullptr) return sqlite3_extended_errcode(to);
  constexpr int kAllPages = -1;
  sqlite3_backup_step(backup, kAllPages);
  return sqlite3_backup_finish(backup);
}

DbValue ColumnValue(sqlite3_stmt* statement, int column) {
  switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
      return std::monostate();
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(statement, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(statement, column);
    default:
      break;
  }
  const void* const bytes = sqlite3_column_blob(statement, column);
  const auto size = static_cast<std::size_t>(sqlite3_column_bytes(statement, column));
  return bytes == nullptr ? std::string() : std::string(static_cast<const char*>(bytes), size);
}

MemoryRecordset::Row ReadRow(sqlite3_stmt* statement, int columns) {
  MemoryRecordset::Row row;
  row.reserve(static_cast<std::size_t>(columns));
  for (int i = 0; i < columns; ++i) row.push_back(ColumnValue(statement, i));
  return row;
}

bool IsRefusedStatement(int code) {
  const int primary = code & 0xFF;
  return primary == SQLITE_ERROR || primary == SQLITE_AUTH || primary == SQLITE_RANGE;
}

}  // namespace

SqliteFile::SqliteFile(const std::string& shownPath, DbMode mode,
                       std::chrono::milliseconds lockWait)
    : shownPath_(shownPath), lockDeadline_(std::chrono::steady_clock::now() + lockWait) {
  Connect(FindFile(shownPath), mode);
  Harden();
  CheckSchema();
  if (mode == DbMode::kWrite || mode == DbMode::kReadWrite) PrepareWriting(mode);
  RestrictStatements();
}

SqliteFile::SqliteFile(const std::string& shownPath, SqliteHandle filled)
    : shownPath_(shownPath), database_(std::move(filled)) {
  Harden();
  RestrictStatements();
}

SqliteFile::~SqliteFile() = default;

void SqliteCloser::operator()(sqlite3* database) const {
  sqlite3_close(database);
}

void SqliteFile::Connect(const std::string& utf8Path, DbMode mode) {
  const int access = mode == DbMode::kRead ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(utf8Path.c_str(), &opened,
                                   access | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  database_.reset(opened);
  if (code != SQLITE_OK) throw ErrorOf(DatabaseFailure::kFileUnreadable, shownPath_);
  sqlite3_busy_handler(opened, WaitForLock, this);
}

void SqliteFile::Harden() {
  constexpr std::array<Limit, 7> kSwitches{{{SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
                                            {SQLITE_DBCONFIG_DEFENSIVE, 1},
                                            {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},
                                            {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0},
                                            {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
                                            {SQLITE_DBCONFIG_DQS_DML, 0},
                                            {SQLITE_DBCONFIG_DQS_DDL, 0}}};
  for (const Limit& entry : kSwitches) {
    sqlite3_db_config(database_.get(), entry.id, entry.value, nullptr);
  }
  for (const Limit& limit : kLimits) sqlite3_limit(database_.get(), limit.id, limit.value);
  if (!AddJetFunctions(database_.get())) ThrowFailure(SQLITE_NOMEM);
}

// The first look into the file: everything before was only a handle.
void SqliteFile::CheckSchema() {
  const int code = sqlite3_exec(database_.get(), "SELECT count(*) FROM sqlite_schema", nullptr,
                                nullptr, nullptr);
  if (code == SQLITE_OK) return;
  const int primary = code & 0xFF;
  if (primary == SQLITE_CANTOPEN) throw ErrorOf(DatabaseFailure::kFileUnreadable, shownPath_);
  if (primary == SQLITE_NOTADB || primary == SQLITE_CORRUPT || primary == SQLITE_ERROR) {
    throw ErrorOf(DatabaseFailure::kFileNotRecognised, shownPath_, code);
  }
  ThrowFailure(code);
}

void SqliteFile::PrepareWriting(DbMode mode) {
  if (sqlite3_db_readonly(database_.get(), "main") != 0) ThrowFailure(SQLITE_READONLY);
  // The rollback journal exists only while somebody writes, so a copy of the file taken at any
  // other time is whole; EXTRA makes its removal, and with it the row, survive a power cut.
  Command("PRAGMA journal_mode=DELETE");
  Command("PRAGMA synchronous=EXTRA");
  inTransaction_ = mode == DbMode::kWrite;
  Command(inTransaction_ ? "BEGIN EXCLUSIVE" : "BEGIN IMMEDIATE");
  Command("SAVEPOINT trial; PRAGMA user_version=1; ROLLBACK TO trial; RELEASE trial");
  if (!inTransaction_) Command("ROLLBACK");
}

void SqliteFile::RestrictStatements() {
  sqlite3_set_authorizer(database_.get(), Authorize, nullptr);
}

void SqliteFile::Command(const char* sql) {
  const Unrestricted own(database_.get());
  const int code = sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) ThrowFailure(code);
}

int SqliteFile::WaitForLock(void* self, int /*count*/) {
  if (std::chrono::steady_clock::now() >= static_cast<SqliteFile*>(self)->lockDeadline_) return 0;
  std::this_thread::sleep_for(kLockRetry);
  return 1;
}

DatabaseError SqliteFile::Failure(int code) const {
  if (!IsRefusedStatement(code))
    return SqliteError(code, shownPath_).Saying(sqlite3_errmsg(database_.get()));
  return ErrorOf(DatabaseFailure::kSyntax, sqlite3_errmsg(database_.get()), code);
}

void SqliteFile::ThrowFailure(int code) const {
  throw Failure(code);
}

std::unique_ptr<Recordset> SqliteFile::Run(const std::string& sql,
                                           const std::vector<double>& values) {
  RequireTransaction();
  lockDeadline_ = std::chrono::steady_clock::now() + kDatabaseLockWait;
  sqlite3_stmt* prepared = nullptr;
  int code = sqlite3_prepare_v2(database_.get(), sql.c_str(), -1, &prepared, nullptr);
  const Statement statement(prepared);
  for (std::size_t i = 0; code == SQLITE_OK && i < values.size(); ++i) {
    code = sqlite3_bind_double(prepared, static_cast<int>(i) + 1, values[i]);
  }
  if (code != SQLITE_OK) ThrowFailure(code);

  const int columnCount = sqlite3_column_count(prepared);
  std::vector<std::string> columns;
  columns.reserve(static_cast<std::size_t>(columnCount));
  for (int i = 0; i < columnCount; ++i) columns.emplace_back(sqlite3_column_name(prepared, i));
  std::vector<MemoryRecordset::Row> rows;
  while ((code = sqlite3_step(prepared)) == SQLITE_ROW) {
    rows.push_back(ReadRow(prepared, columnCount));
  }
  // What a transaction goes on with must be all.
  if (code != SQLITE_DONE && (rows.empty() || inTransaction_)) ThrowFailure(code);
  std::optional<DatabaseError> failure;
  if (code != SQLITE_DONE) failure = Failure(code);
  return std::make_unique<MemoryRecordset>(std::move(columns), std::move(rows), std::move(failure));
}

// A full disk or a rule of the file may end the transaction, and whoever went on would write for
// good, among others.
void SqliteFile::RequireTransaction() const {
  if (inTransaction_ && sqlite3_get_autocommit(database_.get()) != 0) {
    throw ErrorOf(DatabaseFailure::kDiskError, shownPath_);
  }
}

void SqliteFile::Commit() {
  RequireTransaction();
  Command("COMMIT");
  inTransaction_ = false;
}

void SqliteFile::KeepOthersOut() {
  // The mode keeps the lock from now on. Set before, it would keep the half of the lock that is
  // there while waiting for the rest, against another process that does the same.
  Command("BEGIN EXCLUSIVE; PRAGMA locking_mode=EXCLUSIVE; COMMIT");
}

void SqliteFile::CheckPages() {
  const Unrestricted own(database_.get());
  if (Run("PRAGMA quick_check(1)", {})->Field(0) != DbValue("ok")) {
    throw ErrorOf(DatabaseFailure::kFileDamaged, shownPath_);
  }
}

void SqliteFile::CopyInto(const std::filesystem::path& file, const std::string& shownCopy) {
  CheckPages();
  sqlite3* opened = nullptr;
  int code =
      sqlite3_open_v2(SqlitePath(file).c_str(), &opened,
                      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE, nullptr);
  const SqliteHandle copy(opened);
  // A copy that fails is thrown away, and one that does not is brought to the disk as a whole.
  const char* const kUnguarded = "PRAGMA journal_mode=OFF; PRAGMA synchronous=OFF";
  if (code == SQLITE_OK) code = sqlite3_exec(opened, kUnguarded, nullptr, nullptr, nullptr);
  if (code == SQLITE_OK) code = CopyPages(database_.get(), opened);
  // All pages could be read before, so it is the copy.
  if (code != SQLITE_OK) throw SqliteError(code, shownCopy);
}

void SqliteFile::Compact() {
  // The lock now ends with the change that VACUUM is, which takes the rollback journal along.
  Command("PRAGMA locking_mode=NORMAL");
  Command("VACUUM");
}

}  // namespace orvane
