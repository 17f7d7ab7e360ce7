#include "platform/databases/sqlite/sqlite_file.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <thread>

#include "platform/databases/database_errors.h"
#include "platform/databases/memory_recordset.h"
#include "platform/databases/sqlite/sqlite_functions.h"
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

std::string Utf8Path(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

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
  return Utf8Path(path);
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

// What a result code of an open file means. `extended` is the code with its details.
DatabaseFailure FailureOfCode(int extended) {
  switch (extended) {
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_ROWID:
      return DatabaseFailure::kDuplicate;
    case SQLITE_CONSTRAINT_NOTNULL:
      return DatabaseFailure::kNullField;
    default:
      break;
  }
  switch (extended & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_PROTOCOL:
      return DatabaseFailure::kFileLocked;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return DatabaseFailure::kFileDamaged;
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_CANTOPEN:
      return DatabaseFailure::kFileWriteProtected;
    case SQLITE_FULL:
      return DatabaseFailure::kDiskFull;
    case SQLITE_NOMEM:
      return DatabaseFailure::kOutOfMemory;
    case SQLITE_TOOBIG:
      return DatabaseFailure::kValueTooLarge;
    case SQLITE_CONSTRAINT:
    case SQLITE_MISMATCH:
      return DatabaseFailure::kRule;
    default:
      return DatabaseFailure::kOther;
  }
}

// The codes that the program's rules know are not covered up by the engine's own.
DatabaseError ErrorOfCode(int extended, const std::string& shownPath) {
  const DatabaseFailure failure = FailureOfCode(extended);
  const bool known =
      failure == DatabaseFailure::kDuplicate || failure == DatabaseFailure::kNullField;
  return ErrorOf(failure, shownPath, known ? 0 : extended);
}

int VacuumInto(sqlite3* database, const std::string& utf8Path) {
  sqlite3_stmt* prepared = nullptr;
  int code = sqlite3_prepare_v2(database, "VACUUM INTO ?", -1, &prepared, nullptr);
  const Statement statement(prepared);
  if (code != SQLITE_OK) return code;
  code = sqlite3_bind_text(prepared, 1, utf8Path.c_str(), -1, SQLITE_TRANSIENT);
  if (code != SQLITE_OK) return code;
  code = sqlite3_step(prepared);
  return code == SQLITE_DONE ? SQLITE_OK : code;
}

bool IsRefusedStatement(int code) {
  const int primary = code & 0xFF;
  return primary == SQLITE_ERROR || primary == SQLITE_AUTH || primary == SQLITE_RANGE;
}

}  // namespace

SqliteFile::SqliteFile(const std::string& shownPath, DbMode mode)
    : shownPath_(shownPath), lockDeadline_(std::chrono::steady_clock::now() + kDatabaseLockWait) {
  Connect(FindFile(shownPath), mode);
  Harden();
  CheckSchema();
  if (mode == DbMode::kWrite || mode == DbMode::kReadWrite) PrepareWriting();
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

void SqliteFile::PrepareWriting() {
  if (sqlite3_db_readonly(database_.get(), "main") != 0) ThrowFailure(SQLITE_READONLY);
  // The rollback journal exists only while a statement writes, so a copy of the file taken at any
  // other time is whole; EXTRA makes its removal, and with it the row, survive a power cut.
  Command("PRAGMA journal_mode=DELETE");
  // The trial is rolled back, so nothing of it has to reach the disk.
  Command("PRAGMA synchronous=OFF");
  Command("BEGIN IMMEDIATE");
  Command("PRAGMA user_version=1");
  Command("ROLLBACK");
  Command("PRAGMA synchronous=EXTRA");
}

void SqliteFile::RestrictStatements() {
  sqlite3_set_authorizer(database_.get(), Authorize, nullptr);
}

void SqliteFile::Command(const char* sql) {
  const int code = sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) ThrowFailure(code);
}

int SqliteFile::WaitForLock(void* self, int /*count*/) {
  if (std::chrono::steady_clock::now() >= static_cast<SqliteFile*>(self)->lockDeadline_) return 0;
  std::this_thread::sleep_for(kLockRetry);
  return 1;
}

DatabaseError SqliteFile::Failure(int code) const {
  if (!IsRefusedStatement(code)) return ErrorOfCode(code, shownPath_);
  return ErrorOf(DatabaseFailure::kSyntax, sqlite3_errmsg(database_.get()), code);
}

void SqliteFile::ThrowFailure(int code) const {
  throw Failure(code);
}

std::unique_ptr<Recordset> SqliteFile::Run(const std::string& sql,
                                           const std::vector<double>& values) {
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
  if (code != SQLITE_DONE && rows.empty()) ThrowFailure(code);
  std::optional<DatabaseError> failure;
  if (code != SQLITE_DONE) failure = Failure(code);
  return std::make_unique<MemoryRecordset>(std::move(columns), std::move(rows), std::move(failure));
}

void SqliteFile::CopyInto(const std::string& utf8Path) {
  lockDeadline_ = std::chrono::steady_clock::now() + kDatabaseLockWait;
  // The copy is attached while it is written, which no other statement may do.
  sqlite3_set_authorizer(database_.get(), nullptr, nullptr);
  const int code = VacuumInto(database_.get(), utf8Path);
  RestrictStatements();
  if (code != SQLITE_OK) ThrowFailure(code);
}

void SqliteFile::SyncToDisk() {
  sqlite3_file* file = nullptr;
  int code = sqlite3_file_control(database_.get(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
  if (code == SQLITE_OK) code = file->pMethods->xSync(file, SQLITE_SYNC_FULL);
  if (code != SQLITE_OK) ThrowFailure(code);
}

}  // namespace orvane
