#include "platform/databases/odbc/odbc_session.h"

#ifdef _WIN32
#include "platform/databases/odbc/windows/system_types.h"
#endif
#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <QString>
#include <algorithm>
#include <array>
#include <utility>

#include "platform/databases/database_errors.h"
#include "platform/databases/dialect/jet_date.h"
#include "platform/databases/memory_recordset.h"

namespace orvane {
namespace {

// Both are shorter than what the program waits: who gives up by himself leaves nothing behind.
constexpr std::uintptr_t kLoginSeconds = 8;
constexpr std::uintptr_t kStatementSeconds = 8;
constexpr std::size_t kPieceUnits = 2048;

// The interface takes numbers where pointers stand.
SQLPOINTER AsPointer(std::uintptr_t number) {
  return reinterpret_cast<SQLPOINTER>(number);  // NOLINT(performance-no-int-to-ptr)
}

bool Good(SQLRETURN code) {
  return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

// A handle that is freed with the object.
class OdbcHandle {
 public:
  OdbcHandle(SQLSMALLINT type, SQLHANDLE parent) : type_(type) {
    if (!Good(SQLAllocHandle(type, parent, &handle_))) {
      throw ErrorOf(DatabaseFailure::kOutOfMemory);
    }
  }
  ~OdbcHandle() { SQLFreeHandle(type_, handle_); }
  OdbcHandle(const OdbcHandle&) = delete;
  OdbcHandle& operator=(const OdbcHandle&) = delete;
  SQLHANDLE Get() const { return handle_; }

 private:
  SQLSMALLINT type_;
  SQLHANDLE handle_ = SQL_NULL_HANDLE;
};

class Environment : public OdbcHandle {
 public:
  Environment() : OdbcHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE) {
    SQLSetEnvAttr(Get(), SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
  }
};

// UTF-16 as the driver manager wants it.
class WideText {
 public:
  explicit WideText(const std::string& utf8) {
    const QString text = QString::fromStdString(utf8);
    units_.assign(text.utf16(), text.utf16() + text.size() + 1);
  }
  SQLWCHAR* Get() { return units_.data(); }

 private:
  std::vector<SQLWCHAR> units_;
};

std::string Utf8(const SQLWCHAR* units, std::size_t count) {
  std::u16string text(count, u'\0');
  for (std::size_t i = 0; i < count; ++i) text[i] = static_cast<char16_t>(units[i]);
  return QString::fromStdU16String(text).toStdString();
}

std::vector<OdbcDiagnosis> DiagnosesOf(SQLSMALLINT type, SQLHANDLE handle) {
  std::vector<OdbcDiagnosis> result;
  for (SQLSMALLINT record = 1; record < 16; ++record) {
    std::array<SQLWCHAR, 6> state{};
    std::array<SQLWCHAR, 1024> text{};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    if (!Good(SQLGetDiagRecW(type, handle, record, state.data(), &native, text.data(),
                             static_cast<SQLSMALLINT>(text.size()), &length))) {
      break;
    }
    const auto units = std::min(static_cast<std::size_t>(length), text.size() - 1);
    result.push_back(
        {Utf8(state.data(), 5), static_cast<std::int32_t>(native), Utf8(text.data(), units)});
  }
  return result;
}

bool IsWhole(SQLLEN type) {
  return type == SQL_INTEGER || type == SQL_SMALLINT || type == SQL_TINYINT || type == SQL_BIGINT ||
         type == SQL_BIT;
}

bool IsReal(SQLLEN type) {
  return type == SQL_DOUBLE || type == SQL_FLOAT || type == SQL_REAL || type == SQL_NUMERIC ||
         type == SQL_DECIMAL;
}

bool IsDate(SQLLEN type) {
  return type == SQL_TYPE_TIMESTAMP || type == SQL_TYPE_DATE || type == SQL_TIMESTAMP ||
         type == SQL_DATE;
}

// As every engine gives dates. One that Jet does not know is no value.
DbValue DateValue(const SQL_TIMESTAMP_STRUCT& time) {
  constexpr double kNanosecond = 1e-9;
  const std::optional<double> number =
      DateNumber({time.year, time.month, time.day, time.hour, time.minute,
                  time.second + kNanosecond * static_cast<double>(time.fraction)});
  return number ? DbValue(*number) : DbValue();
}

// Reads the rows of a statement that was run.
class RowReader {
 public:
  explicit RowReader(SQLHANDLE statement) : statement_(statement) {
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement_, &count);
    for (SQLSMALLINT column = 1; column <= count; ++column) Describe(column);
  }

  std::vector<std::string> TakeNames() { return std::move(names_); }
  // False at the end; `failed` when the end came too early.
  bool Next(MemoryRecordset::Row& row, bool& failed) {
    const SQLRETURN code = SQLFetch(statement_);
    failed = code != SQL_NO_DATA && !Good(code);
    if (!Good(code)) return false;
    row.clear();
    for (std::size_t i = 0; i < types_.size() && !failed; ++i) row.push_back(Value(i, failed));
    return !failed;
  }

 private:
  void Describe(SQLSMALLINT column) {
    std::array<SQLWCHAR, 256> name{};
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    SQLDescribeColW(statement_, static_cast<SQLUSMALLINT>(column), name.data(),
                    static_cast<SQLSMALLINT>(name.size()), &length, &type, &size, &digits,
                    &nullable);
    names_.push_back(
        Utf8(name.data(), std::min(static_cast<std::size_t>(length), name.size() - 1)));
    types_.push_back(type);
  }

  template <typename Number>
  DbValue NumberAt(SQLUSMALLINT column, SQLSMALLINT type, bool& failed) {
    Number number{};
    SQLLEN size = 0;
    failed = !Good(SQLGetData(statement_, column, type, &number, sizeof number, &size));
    if (failed || size == SQL_NULL_DATA) return std::monostate();
    return number;
  }

  DbValue DateAt(SQLUSMALLINT column, bool& failed) {
    SQL_TIMESTAMP_STRUCT time{};
    SQLLEN size = 0;
    failed = !Good(SQLGetData(statement_, column, SQL_C_TYPE_TIMESTAMP, &time, sizeof time, &size));
    return failed || size == SQL_NULL_DATA ? DbValue() : DateValue(time);
  }

  DbValue TextAt(SQLUSMALLINT column, bool& failed) {
    std::string text;
    std::array<SQLWCHAR, kPieceUnits> piece{};
    while (true) {
      SQLLEN size = 0;
      const SQLRETURN code =
          SQLGetData(statement_, column, SQL_C_WCHAR, piece.data(), sizeof piece, &size);
      if (code == SQL_NO_DATA) return text;
      failed = !Good(code);
      if (failed || size == SQL_NULL_DATA) return std::monostate();
      std::size_t units = 0;
      while (units < piece.size() && piece[units] != 0) ++units;
      text += Utf8(piece.data(), units);
      if (code == SQL_SUCCESS) return text;
    }
  }

  DbValue Value(std::size_t index, bool& failed) {
    const auto column = static_cast<SQLUSMALLINT>(index + 1);
    if (IsWhole(types_[index])) return NumberAt<std::int64_t>(column, SQL_C_SBIGINT, failed);
    if (IsReal(types_[index])) return NumberAt<double>(column, SQL_C_DOUBLE, failed);
    if (IsDate(types_[index])) return DateAt(column, failed);
    return TextAt(column, failed);
  }

  SQLHANDLE statement_;
  std::vector<std::string> names_;
  std::vector<SQLLEN> types_;
};

}  // namespace

struct OdbcSession::Handles {
  Environment environment;
  OdbcHandle connection{SQL_HANDLE_DBC, environment.Get()};
};

std::vector<std::string> InstalledOdbcDrivers() {
  const Environment environment;
  std::vector<std::string> result;
  std::array<SQLWCHAR, 256> name{};
  SQLSMALLINT length = 0;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (Good(SQLDriversW(environment.Get(), direction, name.data(),
                          static_cast<SQLSMALLINT>(name.size()), &length, nullptr, 0, nullptr))) {
    std::size_t units = 0;
    while (units < name.size() && name[units] != 0) ++units;
    result.push_back(Utf8(name.data(), units));
    direction = SQL_FETCH_NEXT;
  }
  return result;
}

// A statement that Cancel finds as long as it is there.
class OdbcSession::Statement : public OdbcHandle {
 public:
  explicit Statement(OdbcSession& session)
      : OdbcHandle(SQL_HANDLE_STMT, session.handles_->connection.Get()), session_(session) {
    SQLSetStmtAttrW(Get(), SQL_ATTR_QUERY_TIMEOUT, AsPointer(kStatementSeconds), 0);
    Announce(this);
  }
  ~Statement() { Announce(nullptr); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  [[noreturn]] void ThrowFailure() const {
    throw OdbcStatementError(DiagnosesOf(SQL_HANDLE_STMT, Get()), session_.subject_);
  }

 private:
  void Announce(Statement* running) {
    const std::lock_guard lock(session_.runningMutex_);
    session_.running_ = running;
  }

  OdbcSession& session_;
};

OdbcSession::OdbcSession(const std::string& connectionString, OdbcSubject subject)
    : subject_(std::move(subject)), handles_(std::make_unique<Handles>()) {
  const SQLHANDLE connection = handles_->connection.Get();
  SQLSetConnectAttrW(connection, SQL_ATTR_LOGIN_TIMEOUT, AsPointer(kLoginSeconds), 0);
  WideText text(connectionString);
  const SQLRETURN code = SQLDriverConnectW(connection, nullptr, text.Get(), SQL_NTS, nullptr, 0,
                                           nullptr, SQL_DRIVER_NOPROMPT);
  if (!Good(code)) throw OdbcConnectError(DiagnosesOf(SQL_HANDLE_DBC, connection), subject_);
}

OdbcSession::~OdbcSession() {
  // Drivers refuse to disconnect in the middle of a transaction.
  if (inTransaction_) SQLEndTran(SQL_HANDLE_DBC, handles_->connection.Get(), SQL_ROLLBACK);
  SQLDisconnect(handles_->connection.Get());
}

std::unique_ptr<Recordset> OdbcSession::Execute(const std::string& sql) {
  const Statement statement(*this);
  WideText text(sql);
  const SQLRETURN code = SQLExecDirectW(statement.Get(), text.Get(), SQL_NTS);
  if (!Good(code) && code != SQL_NO_DATA) statement.ThrowFailure();
  RowReader reader(statement.Get());
  std::vector<MemoryRecordset::Row> rows;
  MemoryRecordset::Row row;
  bool failed = false;
  std::vector<std::string> names = reader.TakeNames();
  if (!names.empty()) {
    while (reader.Next(row, failed)) rows.push_back(row);
  }
  if (failed) statement.ThrowFailure();
  return std::make_unique<MemoryRecordset>(std::move(names), std::move(rows));
}

void OdbcSession::Begin() {
  const SQLHANDLE connection = handles_->connection.Get();
  if (!Good(SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, AsPointer(SQL_AUTOCOMMIT_OFF),
                               SQL_IS_UINTEGER))) {
    throw OdbcStatementError(DiagnosesOf(SQL_HANDLE_DBC, connection), subject_);
  }
  inTransaction_ = true;
}

void OdbcSession::Commit() {
  const SQLHANDLE connection = handles_->connection.Get();
  if (!Good(SQLEndTran(SQL_HANDLE_DBC, connection, SQL_COMMIT))) {
    throw OdbcStatementError(DiagnosesOf(SQL_HANDLE_DBC, connection), subject_);
  }
  inTransaction_ = false;
  // What was kept is kept, even if the driver should refuse this.
  SQLSetConnectAttrW(connection, SQL_ATTR_AUTOCOMMIT, AsPointer(SQL_AUTOCOMMIT_ON),
                     SQL_IS_UINTEGER);
}

void OdbcSession::Cancel() {
  const std::lock_guard lock(runningMutex_);
  if (running_ != nullptr) SQLCancel(running_->Get());
}

}  // namespace orvane
